// What a million short inputs need not be slowed down by: the stacks of every allocation, and a
// quarantine of freed memory that is larger than the processor's caches. To see where a found block
// was allocated, run its one input with ASAN_OPTIONS=malloc_context_size=30.

extern "C" __attribute__((visibility("default"))) const char* __asan_default_options() {
    return "malloc_context_size=0:max_malloc_fill_size=0:quarantine_size_mb=1:"
           "thread_local_quarantine_size_kb=64";
}

extern "C" __attribute__((visibility("default"))) void KVInitialize_dova2_web() {}
extern "C" __attribute__((visibility("default"))) void KVTerminate_dova2_web() {}

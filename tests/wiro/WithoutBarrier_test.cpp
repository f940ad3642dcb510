// A sandbox may refuse membarrier(2). Then emissions order their accesses themselves.

#include <linux/filter.h>
#include <linux/membarrier.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>

#include "Threads.h"

namespace {

/// From now on membarrier fails as on a kernel that does not know it, on every thread made later.
bool refuseMembarrier() {
    sock_filter steps[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_membarrier, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{4, steps};
    return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

TEST(WithoutBarrier, SignalsWorkAcrossThreads) {
    ASSERT_TRUE(refuseMembarrier());
    ASSERT_EQ(::syscall(SYS_membarrier, MEMBARRIER_CMD_QUERY, 0, 0), -1);
    Crowd().run(1, 1);
    Crowd().run(2, 2);
}

}  // namespace

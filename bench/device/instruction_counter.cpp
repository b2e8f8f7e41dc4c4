// A plugin of the emulator: counts the guest's instructions between two system calls that mean nothing else, and prints
// how many there were as they end. What lies between a pause and its end does not count.
//
// The emulator's package brings no header for plugins; the few functions in use are declared here.
// https://www.qemu.org/docs/master/devel/tcg-plugins.html

#include "marks.hpp"

#include <cstdint>
#include <cstdio>

extern "C" {
struct qemu_plugin_tb;
struct qemu_info_t;
/// What to do without a call whenever a block of instructions is run.
enum qemu_plugin_op { QEMU_PLUGIN_INLINE_ADD_U64 = 0 };

void qemu_plugin_register_vcpu_tb_trans_cb(std::uint64_t id,
                                           void (*translated)(std::uint64_t id, qemu_plugin_tb *block));
void qemu_plugin_register_vcpu_syscall_cb(std::uint64_t id,
                                          void (*called)(std::uint64_t id, unsigned processor, std::int64_t number,
                                                         std::uint64_t a, std::uint64_t b, std::uint64_t c,
                                                         std::uint64_t d, std::uint64_t e, std::uint64_t f,
                                                         std::uint64_t g, std::uint64_t h));
void qemu_plugin_register_vcpu_tb_exec_inline(qemu_plugin_tb *block, qemu_plugin_op operation, void *number,
                                              std::uint64_t operand);
std::size_t qemu_plugin_tb_n_insns(const qemu_plugin_tb *block);

/// The interface's version, which the emulator looks for.
__attribute__((visibility("default"))) extern int qemu_plugin_version;
int qemu_plugin_version = 1;
}

namespace {

std::uint64_t executed = 0; // by the process, from its start on
std::uint64_t begun = 0;    // `executed` where the present stretch began
std::uint64_t counted = 0;  // by the stretches that are over

void Translated(std::uint64_t, qemu_plugin_tb *block) {
    qemu_plugin_register_vcpu_tb_exec_inline(block, QEMU_PLUGIN_INLINE_ADD_U64, &executed,
                                             qemu_plugin_tb_n_insns(block));
}

/// A system call ends its block, so that the number is exact here.
void Called(std::uint64_t, unsigned, std::int64_t number, std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t,
            std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t) {
    switch (number) {
    case bench::kBegin:
        counted = 0;
        begun = executed;
        break;
    case bench::kPause:
        counted += executed - begun;
        break;
    case bench::kResume:
        begun = executed;
        break;
    case bench::kEnd:
        counted += executed - begun;
        std::printf("instructions\t%llu\n", static_cast<unsigned long long>(counted));
        std::fflush(stdout);
        break;
    default:
        break;
    }
}

} // namespace

extern "C" __attribute__((visibility("default"))) int qemu_plugin_install(std::uint64_t id, const qemu_info_t *, int,
                                                                          char **) {
    qemu_plugin_register_vcpu_tb_trans_cb(id, &Translated);
    qemu_plugin_register_vcpu_syscall_cb(id, &Called);
    return 0;
}

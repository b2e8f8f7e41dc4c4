#include "crash_report.hpp"

#include "symbols.hpp"

#include <csignal>
#include <cstdio>
#include <map>
#include <ucontext.h>
#include <unistd.h>

namespace device {
namespace {

struct Report {
    std::uint64_t base = 0;
    std::uint64_t size = 0;
    std::map<std::uint64_t, std::string> symbols;
};

Report &TheReport() {
    static Report report;
    return report;
}

void PrintPlace(const char *what, std::uint64_t address) {
    const Report &report = TheReport();
    if (address - report.base >= report.size) {
        std::fprintf(stderr, "  %s outside the library, at %#lx\n", what, address);
        return;
    }
    const std::uint64_t offset = address - report.base;
    auto next = report.symbols.upper_bound(offset);
    if (next == report.symbols.begin()) {
        std::fprintf(stderr, "  %s library offset %#lx\n", what, offset);
        return;
    }
    --next;
    std::fprintf(stderr, "  %s %s + %#lx (library offset %#lx)\n", what, next->second.c_str(), offset - next->first,
                 offset);
}

void Crashed(int signal, siginfo_t *info, void *context) {
    const auto &machine = static_cast<ucontext_t *>(context)->uc_mcontext;
    std::fprintf(stderr, "crash: signal %d at address %p\n", signal, info->si_addr);
    PrintPlace("in", machine.pc);
    PrintPlace("called from", machine.regs[30]);
    // Frame records are a chain of (previous frame, return address).
    constexpr int kDeepest = 24;
    const auto *frame = reinterpret_cast<const std::uint64_t *>(machine.regs[29]);
    for (int depth = 0; depth < kDeepest && frame != nullptr && reinterpret_cast<std::uint64_t>(frame) % 8 == 0;
         ++depth) {
        const std::uint64_t returnAddress = frame[1];
        if (returnAddress - TheReport().base < TheReport().size) {
            PrintPlace("called from", returnAddress);
        }
        const auto *next = reinterpret_cast<const std::uint64_t *>(frame[0]);
        if (next <= frame) {
            break;
        }
        frame = next;
    }
    _exit(128 + signal);
}

} // namespace

void ReportCrashes(const MappedImage &image, const std::string &symbolsPath) {
    Report &report = TheReport();
    report.base = reinterpret_cast<std::uint64_t>(image.base());
    report.size = image.file().AddressSpace();
    report.symbols = ReadSymbols(symbolsPath);
    struct sigaction action{};
    action.sa_sigaction = &Crashed;
    action.sa_flags = SA_SIGINFO | SA_RESETHAND;
    for (const int signal : {SIGSEGV, SIGBUS, SIGILL, SIGTRAP, SIGABRT}) {
        sigaction(signal, &action, nullptr);
    }
}

} // namespace device

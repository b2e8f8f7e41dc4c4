// A library that does what ours never does, for the simulator to notice.

#include <cstdio>
#include <cstdlib>
#include <netdb.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

extern "C" {

void *objc_getClass(const char *name);
void *sel_registerName(const char *name);
void *(*objc_msg_lookup(void *receiver, void *selector))(void *, void *, ...);

/// Sends a message without or with one or two objects.
static void *Send(void *receiver, const char *name, void *first = nullptr, void *second = nullptr) {
    void *const selector = sel_registerName(name);
    return objc_msg_lookup(receiver, selector)(receiver, selector, first, second);
}

__attribute__((visibility("default"))) bool LookAround() {
    if (std::FILE *file = std::fopen("/proc/self/status", "r")) {
        std::fclose(file);
    }
    mkdir("/proc/corvel-nosy", 0700);
    close(socket(AF_INET, SOCK_STREAM, 0));
    void *const key = Send(objc_getClass("NSString"), "stringWithUTF8String:", const_cast<char *>("Other.key"));
    void *const defaults = Send(objc_getClass("NSUserDefaults"), "standardUserDefaults");
    Send(defaults, "setObject:forKey:", key, key);
    // Through Foundation, which opens the file in our stead.
    void *const file = Send(objc_getClass("NSString"), "stringWithUTF8String:", const_cast<char *>("/proc/version"));
    Send(objc_getClass("NSData"), "dataWithContentsOfFile:", file);
    void *const pasteboard = Send(objc_getClass("UIPasteboard"), "generalPasteboard");
    Send(pasteboard, "string");
    Send(defaults, "synchronize"); // writes a file, but that is the platform's
    return true;
}

__attribute__((visibility("default"))) bool ReadFreed() {
    auto *const text = static_cast<char *>(std::calloc(64, 1));
    std::free(text);
    return std::puts(text) >= 0; // NOLINT: wanted
}
}

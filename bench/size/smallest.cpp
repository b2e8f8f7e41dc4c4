// The least that has all segments of the phone's library: code, a function of the platform that the loader binds, data
// that it fixes once and data that changes.

extern "C" void *objc_getClass(const char *name);

namespace {

constinit int changes = 0;
constinit int *volatile place = &changes;

} // namespace

extern "C" __attribute__((visibility("default"))) void *InitUI() {
    *place = 1;
    return objc_getClass("");
}

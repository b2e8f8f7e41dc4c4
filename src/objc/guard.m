// Plain Objective-C: on the desktop's runtime only that language's frames can catch these exceptions.

#include <stdbool.h>

typedef struct objc_object *ObjectPointer;

__attribute__((objc_root_class))
#if defined(__APPLE__)
__attribute__((objc_exception))
#endif
@interface NSException {
    void *isa;
}
- (ObjectPointer)reason;
@end

bool CorvelRunGuarded(void (*body)(void *), void (*caught)(void *, ObjectPointer), void *context);

bool CorvelRunGuarded(void (*body)(void *), void (*caught)(void *, ObjectPointer), void *context) {
    @try {
        body(context);
        return true;
    } @catch (NSException *exception) {
        caught(context, [exception reason]);
        return false;
    }
}

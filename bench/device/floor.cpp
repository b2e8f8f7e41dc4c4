#include "floor.hpp"

#include "class_changes.hpp"
#include "objc_bridge.hpp"

#include "apple/dispatch/queue.hpp"
#include "objc/block.hpp"
#include "objc/runtime.hpp"

#include <cstdlib>
#include <string_view>

extern "C" void DeviceMessageSend();

namespace bench {
namespace {

using objc::Class;
using objc::id;
using objc::IMP;
using objc::SEL;

/// A selector that the dynamic linker has made ready.
struct Named {
    const char *name;
    SEL selector = nullptr;
};

struct OwnMethod {
    Named selector;
    const char *types;
};

/// The replacement of a method of the host's.
struct Hook {
    Named selector;
    IMP previous = nullptr;
};

template <std::size_t N> struct HookedClass {
    const char *name;
    Hook hooks[N];
};

void Nothing() {}

OwnMethod hitTest{{"hitTest:withEvent:"}, "@@:{CGPoint=dd}@"};
OwnMethod shouldReceiveTouch{{"gestureRecognizer:shouldReceiveTouch:"}, "B@:@@"};
OwnMethod shared{{"shared"}, "@@:"};

/// The actions of all controls and recognisers, and what the delegates are asked for.
OwnMethod handlers[] = {
    {{"dm_ftap"}, "v@:"},
    {{"dm_flp:"}, "v@:@"},
    {{"dm_panF:"}, "v@:@"},
    {{"dm_cap"}, "v@:"},
    {{"dm_pM:"}, "v@:@"},
    {{"dm_bM"}, "v@:"},
    {{"dm_mT:"}, "v@:@"},
    {{"dm_mL:"}, "v@:@"},
    {{"dm_sv:"}, "v@:@"},
    {{"dm_dv:"}, "v@:@"},
    {{"dm_bm"}, "v@:"},
    {{"dm_cm"}, "v@:"},
    {{"dm_tog:"}, "v@:@"},
    {{"dm_sw:"}, "v@:@"},
    {{"dm_sl:"}, "v@:@"},
    {{"dm_gc:"}, "v@:@"},
    {{"dm_gb:"}, "v@:@"},
    {{"dm_gi:"}, "v@:@"},
    {{"dm_gd"}, "v@:"},
    {{"dm_gt:"}, "v@:@"},
    {{"dm_clr:"}, "v@:@"},
    {{"dm_cdn:"}, "v@:@"},
    {{"dm_exp"}, "v@:"},
    {{"dm_imp"}, "v@:"},
    {{"dm_clear"}, "v@:"},
    {{"dm_log"}, "v@:"},
    {{"dm_clearLog"}, "v@:"},
    {{"dm_dlp:"}, "v@:@"},
    {{"dm_edbg"}, "v@:"},
    {{"colorPickerViewControllerDidFinish:"}, "v@:@"},
    {{"presentationControllerDidDismiss:"}, "v@:@"},
};

HookedClass<6> fragment{"HTSLiveCommentFragment",
                        {{{"componentMount"}},
                         {{"sendComment:enterSource:requestSource:trackParams:completion:"}},
                         {{"sendComment:commentContext:completion:"}},
                         {{"commentSucceedForComment:withFakeMessage:commentEnterSource:"}},
                         {{"commentBegan"}},
                         {{"dealloc"}}}};
HookedClass<2> store{"HTSLiveCommentStore", {{{"setup"}}, {{"dealloc"}}}};
HookedClass<2> decorateView{"XYLivePlayDecorateView", {{{"didMoveToSuperview"}}, {{"sendFasterChatMsg:"}}}};
HookedClass<4> commentBar{"XYCommentBar",
                          {{{"didMoveToWindow"}},
                           {{"attachToViewController:hideWhenNotFirstResponder:"}},
                           {{"sendButtonTapped:"}},
                           {{"_commentBarWillSend"}}}};
HookedClass<2> engine{"XYLiveImEngine", {{{"joinWithGroupId:callback:"}}, {{"joinWithGroupId:role:callback:"}}}};
HookedClass<1> service{"KwaiLiveBaseService", {{{"onCreate"}}}};
HookedClass<2> barService{"KSSLiveCommentBarService", {{{"bindTarget:"}}, {{"comment:"}}}};
HookedClass<1> commentService{"KSLiveCommentService", {{{"comment:completion:"}}}};
HookedClass<3> preview{"KSLivePreviewSendCommentComponent",
                       {{{"componentDidLoad"}}, {{"componentDidAppear:"}}, {{"sendComment:source:"}}}};
HookedClass<2> commentView{"MMLiveCommentView", {{{"didMoveToWindow"}}, {{"didCommitText:"}}}};

Named defaultCenter{"defaultCenter"};
Named mainQueue{"mainQueue"};
Named addObserver{"addObserverForName:object:queue:usingBlock:"};
Named standardUserDefaults{"standardUserDefaults"};
Named boolForKey{"boolForKey:"};

/// A string as the compiler lays it out; the dynamic linker puts the class in.
struct ConstantString {
    Class isa;
    unsigned long flags;
    const char *units;
    long length;
};
constexpr ConstantString Literal(std::string_view text) {
    constexpr unsigned long kAscii = 0x7c8;
    return {nullptr, kAscii, text.data(), static_cast<long>(text.size())};
}
ConstantString serviceReady = Literal("DanmuServiceReady");
ConstantString latencySwitches[] = {Literal("Corvel.latency.strictDanmakuBuffer"),
                                    Literal("Corvel.latency.forceCachalot"), Literal("Corvel.latency.streamDataFirst"),
                                    Literal("Corvel.latency.playerOptimization")};

template <class R, class... A> R Send(id receiver, const Named &named, A... arguments) {
    return reinterpret_cast<R (*)(id, SEL, A...)>(&DeviceMessageSend)(receiver, named.selector, arguments...);
}

id ClassNamed(const char *name) {
    return objc::AsObject(objc_getClass(name));
}

void Add(Class cls, const OwnMethod &method) {
    kAddMethod(cls, method.selector.selector, &Nothing, method.types);
}

void RegisterOwnClasses() {
    const Class window = kAllocateClass(objc_getClass("UIWindow"), "DanmuWindow", 0);
    Add(window, hitTest);
    kRegisterClass(window);

    const Class root = objc_getClass("NSObject");
    const Class proxy = kAllocateClass(root, "GestureProxy", 0);
    Add(proxy, shouldReceiveTouch);
    Add(objc::object_getClass(objc::AsObject(proxy)), shared);
    if (const objc::Protocol role = objc_getProtocol("UIGestureRecognizerDelegate")) {
        kAddProtocol(proxy, role); // not every runtime knows it
    }
    kRegisterClass(proxy);

    const Class rootsClass = objc::object_getClass(objc::AsObject(root));
    for (const OwnMethod &handler : handlers) {
        Add(rootsClass, handler);
    }
}

void Schedule() {
    dispatch::AsyncOnMain([] {});
    dispatch::AfterOnMain(3'000'000'000, [] {});
    auto block = objc::MakeBlock<void(objc::Object)>([](objc::Object) {});
    const id queue = Send<id>(ClassNamed("NSOperationQueue"), mainQueue);
    Send<id>(Send<id>(ClassNamed("NSNotificationCenter"), defaultCenter), addObserver,
             reinterpret_cast<id>(&serviceReady), id{}, queue,
             static_cast<objc::Block<void(objc::Object)>>(block).pointer);
}

void ReadLatencySwitches() {
    const id defaults = Send<id>(ClassNamed("NSUserDefaults"), standardUserDefaults);
    for (ConstantString &key : latencySwitches) {
        Send<bool>(defaults, boolForKey, reinterpret_cast<id>(&key));
    }
}

/// The lists of a class and those above it are read until each hook has found its method. A lookup instead would send
/// messages to classes of the host's before the host has begun.
template <std::size_t N> void Install(HookedClass<N> &hooked) {
    const Class cls = objc_getClass(hooked.name);
    std::size_t wanted = N;
    for (Class level = cls; level != nullptr && wanted > 0; level = class_getSuperclass(level)) {
        unsigned count = 0;
        objc::Method *const methods = class_copyMethodList(level, &count);
        for (unsigned i = 0; i < count && wanted > 0; ++i) {
            const SEL name = method_getName(methods[i]);
            for (Hook &hook : hooked.hooks) {
                if (hook.previous != nullptr || sel_isEqual(name, hook.selector.selector) == 0) {
                    continue;
                }
                const char *types = method_getTypeEncoding(methods[i]);
                if (level == cls) {
                    hook.previous = kSetImplementation(methods[i], &Nothing);
                } else {
                    hook.previous = method_getImplementation(methods[i]);
                    kAddMethod(cls, hook.selector.selector, &Nothing, types);
                }
                --wanted;
                break;
            }
        }
        std::free(static_cast<void *>(methods));
    }
}

/// Calls visit with each of them.
template <class Visit> void ForEachHookedClass(Visit visit) {
    visit(fragment);
    visit(store);
    visit(decorateView);
    visit(commentBar);
    visit(engine);
    visit(service);
    visit(barService);
    visit(commentService);
    visit(preview);
    visit(commentView);
}

void LookUp(Named &named) {
    named.selector = sel_registerName(named.name);
}

} // namespace

void PrepareFloor() {
    for (Named *named : {&hitTest.selector, &shouldReceiveTouch.selector, &shared.selector, &defaultCenter, &mainQueue,
                         &addObserver, &standardUserDefaults, &boolForKey}) {
        LookUp(*named);
    }
    for (OwnMethod &handler : handlers) {
        LookUp(handler.selector);
    }
    ForEachHookedClass([](auto &hooked) {
        for (Hook &hook : hooked.hooks) {
            LookUp(hook.selector);
        }
    });
    auto *const strings = reinterpret_cast<Class>(device::BridgedSymbol("___CFConstantStringClassReference"));
    serviceReady.isa = strings;
    for (ConstantString &key : latencySwitches) {
        key.isa = strings;
    }
}

void RunFloor() {
    RegisterOwnClasses();
    Schedule();
    ReadLatencySwitches();
    ForEachHookedClass([](auto &hooked) { Install(hooked); });
}

} // namespace bench

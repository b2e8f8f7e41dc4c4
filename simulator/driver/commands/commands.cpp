#include "driver/commands/commands.hpp"

namespace sim::driver {
namespace {

enum class When { kAfterLaunch, kBeforeLaunchToo };

struct Command {
    const char *name;
    When when;
    void (*execute)(Session &session, script::WordReader &words);
};

// A new command is one line here, its function in the file of its subject, and one row in docs/simulator.md.
constexpr Command kCommands[] = {
    {"wait", When::kAfterLaunch, &DoWait},
    {"tap", When::kAfterLaunch, &DoTap},
    {"press", When::kAfterLaunch, &DoPress},
    {"drag", When::kAfterLaunch, &DoDrag},
    {"touch", When::kAfterLaunch, &DoTouch},
    {"slide", When::kAfterLaunch, &DoSlide},
    {"scroll", When::kAfterLaunch, &DoScroll},
    {"pick", When::kAfterLaunch, &DoPick},
    {"type", When::kAfterLaunch, &DoType},
    {"erase", When::kAfterLaunch, &DoErase},
    {"select", When::kAfterLaunch, &DoSelect},
    {"keyboard", When::kBeforeLaunchToo, &DoKeyboard},
    {"set", When::kBeforeLaunchToo, &DoSet},
    {"unset", When::kBeforeLaunchToo, &DoUnset},
    {"pasteboard", When::kBeforeLaunchToo, &DoPasteboard},
    {"host", When::kBeforeLaunchToo, &DoHost},
    {"call", When::kAfterLaunch, &DoCall},
    {"notify", When::kAfterLaunch, &DoNotify},
    {"scene", When::kBeforeLaunchToo, &DoScene},
    {"window", When::kAfterLaunch, &DoWindow},
    {"present", When::kAfterLaunch, &DoPresent},
    {"dismiss", When::kAfterLaunch, &DoDismiss},
    {"appearance", When::kBeforeLaunchToo, &DoAppearance},
    {"picture", When::kAfterLaunch, &DoPicture},
    {"print", When::kAfterLaunch, &DoPrint},
    {"expect", When::kAfterLaunch, &DoExpect},
    {"echo", When::kBeforeLaunchToo, &DoEcho},
    {"relaunch", When::kAfterLaunch, &DoRelaunch},
};

} // namespace

void Execute(Session &session, script::WordReader &words) {
    const std::string name = words.Name("a command");
    for (const Command &command : kCommands) {
        if (name != command.name) {
            continue;
        }
        if (!session.launched && command.when == When::kAfterLaunch) {
            words.Fail(name + " needs the app, which 'setup' comes before");
        }
        command.execute(session, words);
        words.End();
        return;
    }
    words.Fail("unknown command " + name);
}

} // namespace sim::driver

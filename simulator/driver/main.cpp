// corvel-sim: the phone on the desk.

#include "driver/leak_check.hpp"
#include "driver/power.hpp"
#include "driver/runner.hpp"
#include "render/characters.hpp"
#include "runtime/autorelease.hpp"
#include "runtime/native_class.hpp"
#include "runtime/runtime.hpp"
#include "runtime/user_defaults.hpp"
#include "runtime/variants.hpp"
#include "script/loader.hpp"
#include "script/vocabulary.hpp"
#include "uikit/uikit.hpp"

#include <cstdio>
#include <filesystem>
#include <unistd.h>

namespace {

using namespace sim;
using namespace sim::driver;

int PlayScript(const Options &options) {
    Session session;
    session.options = options;
    session.progress = ReadProgress(options);
    if (options.script == "-") {
        script::KeepStandardInput();
    }
    SwitchOn(session);
    const AutoreleasePool pool;
    Outcome outcome = Outcome::kError;
    try {
        if (!options.words.empty()) {
            script::TheVocabulary().Load(options.words);
        }
        if (!options.rules.empty()) {
            session.rules.Load(options.rules);
        }
        outcome = Run(session, script::LoadScript(options.script));
    } catch (const script::ScriptError &error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    if (session.progress.ownsState) {
        std::error_code ignored;
        std::filesystem::remove_all(session.options.state, ignored);
    }
    std::fflush(nullptr);
    // The phone is switched off: nothing of the app or the library runs any more.
    // What flew past when an exception or an error ended the run is nobody's leak.
    const bool complete = outcome == Outcome::kHeld || outcome == Outcome::kFailed;
    _exit(complete && HasLeaked() ? kLeakedStatus : static_cast<int>(outcome));
}

/// Prints class, kind (+ or -), selector and type encoding of every method of the UIKit subset.
int ListApi() {
    const std::string state = MakeStateDirectory();
    SetStateDirectory(state);
    InstallRuntime();
    InstallComposedCharacters();
    RegisterUIKit();
    for (const ApiRow &row : ApiRows()) {
        std::printf("%s\t%c\t%s\t%s\n", row.className, row.kind, row.selectorName, row.encoding);
    }
    std::filesystem::remove_all(state);
    return 0;
}

/// Prints name, the usual way and the other of everything that the phone does in one of two ways.
int ListVariants() {
    for (const VariantRow &row : Variants()) {
        std::printf("%s\t%s\t%s\n", row.name, row.usual, row.otherwise);
    }
    return 0;
}

} // namespace

extern "C" {
/// Asked by the sanitizers of such builds as they start; options of the environment count for more.
const char *__asan_default_options() {
    return kSanitizerOptions;
}
}

int main(int count, char **words) {
    try {
        const Options options = ReadOptions(count, words);
        return options.listsApi ? ListApi() : options.listsVariants ? ListVariants() : PlayScript(options);
    } catch (const UsageError &error) {
        std::fprintf(stderr, "corvel-sim: %s\n%s", error.what(), Usage().c_str());
        return 2;
    }
}

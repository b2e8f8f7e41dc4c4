#include "inspect/check.hpp"

#include "adapters/method_types.hpp"
#include "objc/encoding_compare.hpp"
#include "objc/encoding_reader.hpp"

#include <algorithm>

namespace inspect {
namespace {

using corvel::Holder;
using corvel::SendPath;
using corvel::SendStep;

/// Whether a method with these types can be called as one with those that are wanted. Only a result that is an object
/// is used; another one decides no more than a line in the log, and may be anything that comes in a register.
bool CanBeCalledAs(const char *wanted, const std::string &found) {
    objc::EncodingReader result{found.c_str()};
    result.SkipNoise();
    if (*wanted == '@' || objc::IsOneOf("{([", *result.at)) {
        return objc::SameEncoding(wanted, found.c_str(), objc::Integers::kLoose);
    }
    result.SkipType();
    objc::EncodingReader wantedResult{wanted};
    wantedResult.SkipType();
    return objc::SameEncoding(wantedResult.at, result.at, objc::Integers::kLoose);
}

/// Whether a way to send gets what it needs.
bool Good(const Finding &finding) {
    return finding.dispensable || finding.verdict == Verdict::kPresent || finding.verdict == Verdict::kInherited;
}

class HostCheck {
  public:
    HostCheck(const WantedHost &host, const Classes &classes, const std::set<std::string> &late)
        : host_(host), classes_(classes), late_(late) {}

    HostFinding Run() {
        HostFinding result{.name = host_.name, .hooks = {}, .paths = {}, .options = {}};
        for (const WantedHook &hook : host_.hooks) {
            result.hooks.push_back(Hook(hook));
        }
        for (const SendPath &path : host_.paths) {
            result.paths.push_back(Path(path, result.hooks));
        }
        ShutOff(result.paths);
        for (const WantedOption &option : host_.options) {
            OptionFinding &finding = result.options.emplace_back(OptionFinding{.key = option.key, .getters = {}});
            for (const WantedGetter &getter : option.getters) {
                finding.getters.push_back(Getter(getter));
            }
        }
        result.works = std::ranges::any_of(result.paths, &PathFinding::works);
        return result;
    }

  private:
    /// The class as it is, and what is to be said of one that is not there.
    Finding Start(const std::string &className, const std::string &name) const {
        Finding finding{.className = className, .name = name, .from = {}, .types = {}, .note = {}};
        if (!classes_.Has(className)) {
            const std::string swift = classes_.SwiftOnly(className);
            finding.note = swift.empty() ? "no such class" : "only a class of Swift, " + swift;
        }
        return finding;
    }

    /// What the class has of the method.
    Finding Look(const std::string &className, const std::string &selector) const {
        Finding finding = Start(className, selector);
        if (!finding.note.empty()) {
            return finding;
        }
        const auto found = classes_.Find(className, selector);
        if (!found) {
            const std::string unknown = classes_.UnknownAncestor(className);
            finding.note = unknown.empty()
                               ? "no such method"
                               : "no such method in the app; what its ancestor " + unknown + " has is not known";
            return finding;
        }
        finding.verdict = found->className == className ? Verdict::kPresent : Verdict::kInherited;
        finding.from = found->className == className ? std::string{} : found->className;
        finding.types = found->types;
        return finding;
    }

    Finding Hook(const WantedHook &hook) const {
        Finding finding = Look(hook.className, hook.selector);
        if (finding.verdict == Verdict::kMissing) {
            return finding;
        }
        if (!corvel::CanStandFor(finding.types.c_str(), hook.selector.c_str(), hook.usesFirstAsObject)) {
            finding.verdict = Verdict::kUnfit;
            return finding;
        }
        // The class may come late, or the method that another library adds to it.
        for (const std::string &image :
             {classes_.ImageOf(hook.className), classes_.Find(hook.className, hook.selector)->image}) {
            if (late_.contains(image)) {
                finding.verdict = Verdict::kMissing;
                finding.note = "its library " + image + " is not loaded with the app";
            }
        }
        return finding;
    }

    /// Options are applied long after the app has started: no library is too late for them.
    Finding Getter(const WantedGetter &getter) const {
        Finding finding = Look(getter.className, getter.selector);
        if (finding.verdict != Verdict::kMissing && !corvel::CanForce(*getter.forced, finding.types.c_str())) {
            finding.verdict = Verdict::kUnfit;
        }
        return finding;
    }

    Finding Step(const SendStep &step) const {
        switch (step.kind) {
        case SendStep::Kind::kMethod:
        case SendStep::Kind::kFill: {
            Finding finding = Look(step.className, step.name);
            if (finding.verdict != Verdict::kMissing && !CanBeCalledAs(step.types, finding.types)) {
                finding.verdict = Verdict::kUnfit;
                finding.note = std::string("called as ") + step.types;
            }
            return finding;
        }
        case SendStep::Kind::kCarrier: {
            Finding finding = Start(step.className, {});
            finding.verdict = finding.note.empty() ? Verdict::kPresent : Verdict::kMissing;
            return finding;
        }
        case SendStep::Kind::kKey:
        case SendStep::Kind::kCarrierKey:
            return Key(step.className, step.name);
        }
        return {};
    }

    /// Whether a text can be set under the key.
    Finding Key(const std::string &className, const std::string &key) const {
        Finding finding = Start(className, key);
        finding.isKey = true;
        if (!finding.note.empty()) {
            return finding;
        }
        const auto found = classes_.FindSetter(className, key);
        if (!found) {
            finding.note = "nothing by that key";
            return finding;
        }
        finding.verdict = found->className == className ? Verdict::kPresent : Verdict::kInherited;
        finding.from = found->className == className ? std::string{} : found->className;
        finding.types = found->types;
        if (!found->isObject) {
            finding.verdict = Verdict::kUnfit;
            finding.note = "takes no text";
        }
        return finding;
    }

    /// Whether objects of the class answer the message with an object.
    bool Names(const std::string &className, const char *getter) const {
        const auto found = classes_.Find(className, getter);
        return found && corvel::IsObjectGetter(found->types.c_str());
    }

    /// Whether the hook would bring us an object to send through.
    bool Holds(const Holder &holder, const SendPath &path, const std::vector<Finding> &hooks) const {
        const bool installed = std::ranges::any_of(hooks, [&](const Finding &hook) {
            return hook.className == holder.className && hook.name == holder.selector && Good(hook);
        });
        if (!installed || !classes_.Has(path.className)) {
            return false;
        }
        if (holder.getters[0] != nullptr) {
            return std::ranges::any_of(holder.getters, [&](const char *getter) {
                return getter != nullptr && Names(holder.className, getter);
            });
        }
        if (holder.key != nullptr) {
            const auto found = classes_.FindGetter(holder.className, holder.key);
            return found && found->isObject;
        }
        // The hook sees objects of a subclass too, unless that has a method of its own, which need not call the hooked
        // one.
        for (const std::string &level : classes_.Lineage(path.className)) {
            if (level == holder.className) {
                return true;
            }
            if (classes_.FindOwn(level, holder.selector)) {
                return false;
            }
        }
        return false;
    }

    /// What stands behind a way that loses comments is never tried.
    static void ShutOff(std::vector<PathFinding> &paths) {
        const auto losing = std::ranges::find_if(paths, &PathFinding::loses);
        for (auto path = losing; path != paths.end(); ++path) {
            if (path != losing && path->works) {
                path->works = false;
                path->reason = "not tried, because " + losing->name + " takes the comment and loses it";
            }
        }
    }

    PathFinding Path(const SendPath &path, const std::vector<Finding> &hooks) const {
        PathFinding result{.name = path.name, .steps = {}, .reason = {}};
        for (const Holder &holder : path.holders) {
            if (holder.className != nullptr && Holds(holder, path, hooks)) {
                result.held = true;
            }
        }
        result.reason = result.held ? "" : std::string("no hook would bring a ") + path.className;
        // What is there in another form is called or set all the same.
        bool taken = result.held;
        bool filled = false;
        for (const SendStep &step : path.steps) {
            if (step.className != nullptr) {
                result.steps.push_back(Step(step));
                const bool hasIt = result.steps.back().verdict != Verdict::kMissing;
                taken &= hasIt || (step.kind != SendStep::Kind::kMethod && step.kind != SendStep::Kind::kKey);
                filled |= step.kind == SendStep::Kind::kCarrierKey && Good(result.steps.back());
            }
        }
        for (std::size_t i = 0; i < result.steps.size(); ++i) {
            Finding &finding = result.steps[i];
            finding.dispensable = filled && path.steps[i].kind == SendStep::Kind::kCarrierKey && !Good(finding);
            if (!Good(finding) && result.reason.empty()) {
                result.reason = finding.className + (finding.name.empty() ? "" : " " + finding.name) +
                                (finding.verdict == Verdict::kUnfit ? " has other types" : " is missing");
            }
        }
        result.works = result.reason.empty();
        result.loses = taken && !result.works;
        return result;
    }

    const WantedHost &host_;
    const Classes &classes_;
    const std::set<std::string> &late_;
};

} // namespace

HostFinding CheckHost(const WantedHost &host, const Classes &classes, const std::set<std::string> &late) {
    return HostCheck(host, classes, late).Run();
}

} // namespace inspect

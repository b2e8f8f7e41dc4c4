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

/// Whether a method with these types can be called as one with those that are wanted. A result that nobody looks at may
/// be anything that comes in a register.
bool CanBeCalledAs(const char *wanted, const std::string &found) {
    objc::EncodingReader result{found.c_str()};
    result.SkipNoise();
    if (*wanted != 'v' || objc::IsOneOf("{([", *result.at)) {
        return objc::SameEncoding(wanted, found.c_str(), objc::Integers::kLoose);
    }
    result.SkipType();
    return objc::SameEncoding(wanted, ("v" + std::string(result.at)).c_str(), objc::Integers::kLoose);
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
        HostFinding result{.name = host_.name, .hooks = {}, .paths = {}};
        for (const WantedHook &hook : host_.hooks) {
            result.hooks.push_back(Hook(hook));
        }
        for (const SendPath &path : host_.paths) {
            result.paths.push_back(Path(path, result.hooks));
        }
        ShutOff(result.paths);
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
        } else if (late_.contains(classes_.ImageOf(hook.className))) {
            finding.verdict = Verdict::kMissing;
            finding.note = "its library " + classes_.ImageOf(hook.className) + " is not loaded with the app";
        }
        return finding;
    }

    Finding Step(const SendStep &step) const {
        switch (step.kind) {
        case SendStep::Kind::kMethod:
        case SendStep::Kind::kOptional: {
            Finding finding = Look(step.className, step.name);
            finding.dispensable = step.kind == SendStep::Kind::kOptional && finding.verdict == Verdict::kMissing;
            if (finding.verdict != Verdict::kMissing && !CanBeCalledAs(step.types, finding.types)) {
                finding.verdict = Verdict::kUnfit;
                finding.note = std::string("called as ") + step.types;
            }
            return finding;
        }
        case SendStep::Kind::kClass: {
            Finding finding = Start(step.className, {});
            finding.verdict = finding.note.empty() ? Verdict::kPresent : Verdict::kMissing;
            return finding;
        }
        case SendStep::Kind::kKey: {
            Finding finding = Start(step.className, step.name);
            finding.isKey = true;
            if (finding.note.empty()) {
                const bool can = classes_.CanSet(step.className, step.name);
                finding.verdict = can ? Verdict::kPresent : Verdict::kMissing;
                finding.note = can ? "" : "nothing by that key";
            }
            return finding;
        }
        }
        return {};
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
        for (const SendStep &step : path.steps) {
            if (step.className == nullptr) {
                continue;
            }
            const Finding finding = Step(step);
            if (!Good(finding) && result.reason.empty()) {
                result.reason = finding.className + (finding.name.empty() ? "" : " " + finding.name) +
                                (finding.verdict == Verdict::kUnfit ? " has other types" : " is missing");
            }
            result.steps.push_back(finding);
        }
        result.works = result.reason.empty();
        // Without the class that carries the comment the way is gone all the same.
        result.loses = result.held && !result.works && std::ranges::all_of(result.steps, [](const Finding &step) {
                           return step.name.empty() || Good(step);
                       });
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

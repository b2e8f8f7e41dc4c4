#pragma once
// How a host deviates from its usual make.

#include "objc/runtime.hpp"
#include "script/words.hpp"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace sim::hosts {

struct Plan {
    /// A method by the name of its class and its selector.
    using Method = std::pair<std::string, std::string>;

    struct Throw {
        std::string reason;
        script::Place place; // of the line that asks for it
        bool maybe = false;  // the script may end without anything that threw it
        bool met = false;
    };

    /// A method whose types differ from those of the usual make.
    struct Shape {
        std::string encoding;
        script::Place place;
    };

    /// A property of the objects of a class, beside the keys that scripts make up for them.
    struct Property {
        std::string className;
        std::string name; // the accessor's, or the instance variable's as it is declared: `_roomId`
        std::string type; // as encodings have it
        bool accessor = false;
        script::Place place;
    };

    // Laid down before the host's classes are registered; each with the place of its line.
    std::map<std::string, script::Place> lackedClasses = {};
    std::map<Method, script::Place> lackedMethods = {};
    std::map<Method, script::Place> extraMethods = {};     // that only some builds of the app have
    std::map<Method, script::Place> inheritedMethods = {}; // stand in the base class instead
    std::map<Method, Shape> shapes = {};
    std::vector<Property> properties = {};
    std::map<std::string, std::pair<std::string, script::Place>> superclasses = {}; // of classes that changed theirs
    std::vector<std::pair<std::vector<script::Word>, script::Place>> wraps = {};    // class and selector of each
    // May begin and end at any time. Both hold for the class and its subclasses.
    std::map<Method, Throw> throwing = {};         // also key-value keys
    std::map<Method, script::Place> refusing = {}; // does nothing and answers nil, false or 0

    /// The reason with which the method is to throw in objects of this class; null when it is not.
    const std::string *ReasonToThrow(objc::Class cls, const std::string &selector) const;
    /// The same for the method that throws it now: the plan has been met.
    const std::string *MeetThrow(objc::Class cls, const std::string &selector);
    /// Whether the method refuses in objects of this class.
    bool Refuses(objc::Class cls, const std::string &selector) const;

    /// Plans a throw, in the place of another of the same method.
    void PlanThrow(const Method &method, const Throw &planned);
    /// Ends all throwing. Throws ScriptError, at the place of its line, for a throw that nothing met: a script that
    /// waits for what never happens shows nothing.
    void EndThrowing();
};

/// The plan of this process's one host.
Plan &ThePlan();

} // namespace sim::hosts

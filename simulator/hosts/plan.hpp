#pragma once
// How a host deviates from its usual make: what it lacks, what it inherits, what throws. The first three are laid down
// before its classes are registered; throwing may begin and end at any time.

#include "objc/runtime.hpp"

#include <map>
#include <set>
#include <string>
#include <utility>

namespace sim::hosts {

class Plan {
  public:
    /// A method by the name of its class and its selector.
    using Method = std::pair<std::string, std::string>;

    void LackClass(const std::string &cls);
    void LackMethod(const Method &method);
    /// Gives the class a method that only some builds of the app have.
    void HaveMethod(const Method &method);
    /// Lets the class inherit the method from its base class instead of defining it.
    void InheritMethod(const Method &method);
    /// Lets the method raise an exception with this reason, in the class and its subclasses.
    void Throw(const Method &method, const std::string &reason);
    void StopThrowing();
    /// Lets the method do nothing and answer nil, false or 0, in the class and its subclasses.
    void Refuse(const Method &method);
    void StopRefusing();

    bool LacksClass(const std::string &cls) const;
    bool LacksMethod(const Method &method) const;
    bool HasMethod(const Method &method) const;
    bool Inherits(const Method &method) const;
    /// The reason with which the method is to throw in objects of this class; null when it is not.
    const std::string *ReasonToThrow(objc::Class cls, const std::string &selector) const;
    bool Refuses(objc::Class cls, const std::string &selector) const;

  private:
    std::set<std::string> lackedClasses_;
    std::set<Method> lackedMethods_;
    std::set<Method> extraMethods_;
    std::set<Method> inheritedMethods_;
    std::map<Method, std::string> throwing_;
    std::set<Method> refusing_;
};

/// The plan of this process's one host.
Plan &ThePlan();

} // namespace sim::hosts

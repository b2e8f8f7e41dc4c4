#pragma once
// What reached the host: every call of one of its methods, and every comment.

#include "apple/foundation/string.hpp"
#include "hosts/blocks.hpp"
#include "objc/ref.hpp"
#include "script/expectation.hpp"

#include <functional>
#include <string>
#include <vector>

namespace sim::hosts {

/// One call of a host method as its own implementation saw it.
struct Call {
    script::Fact object; // `store 1`
    std::string selector;
    std::vector<script::Fact> arguments;
};

/// One comment that a host received.
struct Comment {
    std::string path;     // the method family that it came through: "store", "fragment", …
    script::Fact object;  // who received it: `store 1`
    script::Fact text;    // "你好", or nil
    script::Fact room;    // the room id that it carries, or nil
    script::Fact context; // key and value of everything that came with it, in the order of arrival; or nil
};

class Record {
  public:
    void Add(Call call) {
        calls_.push_back(std::move(call));
    }
    /// Keeps a comment and tells the listeners.
    void Add(Comment comment);
    const std::vector<Call> &calls() const {
        return calls_;
    }
    const std::vector<Comment> &comments() const {
        return comments_;
    }
    /// Calls the function with each comment from now on.
    void Listen(std::function<void(const Comment &comment, int number)> listener) {
        listeners_.push_back(std::move(listener));
    }

  private:
    std::vector<Call> calls_;
    std::vector<Comment> comments_;
    std::vector<std::function<void(const Comment &, int)>> listeners_;
};

/// The record of this process's one host.
Record &TheRecord();

/// An argument in the words of a script: a value, or the name of a host object.
script::Fact DescribeArgument(ns::Object value);
script::Fact DescribeArgument(long value);
script::Fact DescribeArgument(bool value);
script::Fact DescribeArgument(double value);
template <class Signature> script::Fact DescribeArgument(objc::Block<Signature> block) {
    return NameOfBlock(block.pointer);
}
template <objc::Handle View>
    requires(!std::derived_from<View, ns::Object>)
script::Fact DescribeArgument(View object) {
    return DescribeArgument(ns::Object{object});
}

/// Keeps a comment that reached an object of the host; the context is `nil` unless something came with it.
void ReceiveComment(const char *path, ns::Object receiver, ns::Object text, ns::Object room = {},
                    script::Fact context = {script::Bare("nil")});

/// Adds the words of another fact.
void Append(script::Fact &fact, const script::Fact &more);

/// Whole facts: `OBJECT SELECTOR ARGUMENTS…` and `"text" path PATH object OBJECT room ID context KEY VALUE…`.
script::Fact DescribeCall(const Call &call);
script::Fact DescribeComment(const Comment &comment);

} // namespace sim::hosts

#pragma once
// What reached the host: every call of one of its methods, and every comment.

#include "apple/coregraphics/geometry.hpp"
#include "apple/foundation/string.hpp"
#include "hosts/blocks.hpp"
#include "objc/ref.hpp"

#include <functional>

namespace sim::hosts {

/// One call of a host method as its own implementation saw it.
struct Call {
    std::string selector;
    Fact fact; // `OBJECT SELECTOR ARGUMENTS…`
};

/// One comment that a host received.
struct Comment {
    Fact text;    // "你好", or nil
    Fact path;    // the method family that it came through: `store`, `fragment`, …
    Fact object;  // who received it: `store 1`
    Fact room;    // the room id that it carries, or nil
    Fact context; // key and value of everything that came with it, in the order of arrival; or nil
};

struct Record {
    std::vector<Call> calls;
    std::vector<Comment> comments;
    /// Called with each comment and its number, from 1.
    std::vector<std::function<void(const Comment &comment, std::size_t number)>> listeners;
};

/// The record of this process's one host.
Record &TheRecord();

/// Keeps a call of the selector with these arguments.
void RecordCall(ns::Object receiver, const char *selector, const std::vector<Fact> &arguments);

/// Keeps a comment that reached an object of the host and tells the listeners; the context is `nil` unless something
/// came with it.
void ReceiveComment(const char *path, ns::Object receiver, ns::Object text, ns::Object room = {},
                    Fact context = {Bare("nil")});

/// The comment as `"text" path PATH object OBJECT room ID context KEY VALUE…`, or the one field that is named next.
/// Throws ScriptError for a field that comments do not have.
Fact DescribeComment(const Comment &comment);
Fact DescribeField(const Comment &comment, WordReader &words);

/// An argument in the words of a script: a value, or the name of a host object.
Fact DescribeArgument(ns::Object value);
template <class T>
    requires std::is_arithmetic_v<T>
Fact DescribeArgument(T value) {
    return {Bare(value)};
}
inline Fact DescribeArgument(cg::Rect rect) {
    return {Bare(rect.origin.x), Bare(rect.origin.y), Bare(rect.size.width), Bare(rect.size.height)};
}
template <class Signature> Fact DescribeArgument(objc::Block<Signature> block) {
    return NameOfBlock(block.pointer);
}
template <objc::Handle View>
    requires(!std::derived_from<View, ns::Object>)
Fact DescribeArgument(View object) {
    return DescribeArgument(ns::Object{object});
}

} // namespace sim::hosts

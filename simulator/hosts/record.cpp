#include "hosts/record.hpp"

#include "hosts/objects.hpp"
#include "script/values.hpp"

namespace sim::hosts {

using script::Bare;
using script::Fact;

void Append(Fact &fact, const Fact &more) {
    fact.insert(fact.end(), more.begin(), more.end());
}

Record &TheRecord() {
    static Record record;
    return record;
}

void Record::Add(Comment comment) {
    comments_.push_back(std::move(comment));
    for (const auto &listener : listeners_) {
        listener(comments_.back(), static_cast<int>(comments_.size()));
    }
}

void ReceiveComment(const char *path, ns::Object receiver, ns::Object text, ns::Object room, Fact context) {
    TheRecord().Add(Comment{.path = path,
                            .object = TheObjects().NameOf(receiver),
                            .text = DescribeArgument(text),
                            .room = DescribeArgument(room),
                            .context = std::move(context)});
}

Fact DescribeArgument(ns::Object value) {
    return TheObjects().Knows(value) ? TheObjects().NameOf(value) : script::DescribeValue(value);
}

Fact DescribeArgument(long value) {
    return {Bare(std::to_string(value))};
}

Fact DescribeArgument(bool value) {
    return {Bare(value ? "true" : "false")};
}

Fact DescribeArgument(double value) {
    return {Bare(value)};
}

Fact DescribeCall(const Call &call) {
    Fact fact = call.object;
    fact.push_back(Bare(call.selector));
    for (const Fact &argument : call.arguments) {
        Append(fact, argument);
    }
    return fact;
}

Fact DescribeComment(const Comment &comment) {
    Fact fact = comment.text;
    Append(fact, {Bare("path"), Bare(comment.path), Bare("object")});
    Append(fact, comment.object);
    fact.push_back(Bare("room"));
    Append(fact, comment.room);
    fact.push_back(Bare("context"));
    Append(fact, comment.context);
    return fact;
}

} // namespace sim::hosts

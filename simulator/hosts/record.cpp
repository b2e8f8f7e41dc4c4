#include "hosts/record.hpp"

#include "hosts/objects.hpp"
#include "script/values.hpp"

namespace sim::hosts {
namespace {

struct Field {
    const char *name;
    Fact Comment::*value;
};

/// In the order in which facts show them; the first needs no name.
constexpr Field kFields[] = {{"text", &Comment::text},
                             {"path", &Comment::path},
                             {"object", &Comment::object},
                             {"room", &Comment::room},
                             {"context", &Comment::context}};

} // namespace

Record &TheRecord() {
    static Record record;
    return record;
}

void RecordCall(ns::Object receiver, const char *selector, const std::vector<Fact> &arguments) {
    Fact fact = TheObjects().NameOf(receiver);
    fact.push_back(Bare(selector));
    for (const Fact &argument : arguments) {
        Append(fact, argument);
    }
    TheRecord().calls.push_back({selector, std::move(fact)});
}

void ReceiveComment(const char *path, ns::Object receiver, ns::Object text, ns::Object room, Fact context) {
    Record &record = TheRecord();
    record.comments.push_back({.text = DescribeArgument(text),
                               .path = {Bare(path)},
                               .object = TheObjects().NameOf(receiver),
                               .room = DescribeArgument(room),
                               .context = std::move(context)});
    for (const auto &listener : record.listeners) {
        listener(record.comments.back(), record.comments.size());
    }
}

Fact DescribeComment(const Comment &comment) {
    Fact fact;
    for (const Field &field : kFields) {
        if (!fact.empty()) {
            fact.push_back(Bare(field.name));
        }
        Append(fact, comment.*field.value);
    }
    return fact;
}

Fact DescribeField(const Comment &comment, WordReader &words) {
    const std::string name = words.Name("text, path, object, room or context");
    for (const Field &field : kFields) {
        if (name == field.name) {
            return comment.*field.value;
        }
    }
    words.Fail("a comment has no " + name);
}

Fact DescribeArgument(ns::Object value) {
    return TheObjects().Knows(value) ? TheObjects().NameOf(value) : script::DescribeValue(value);
}

} // namespace sim::hosts

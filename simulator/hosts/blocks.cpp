#include "hosts/blocks.hpp"

#include "runtime/lasting.hpp"

#include <algorithm>
#include <map>

namespace sim::hosts {
namespace {

struct HostBlocks {
    std::map<long, objc::id> byNumber;
};

std::map<long, objc::id> &Blocks() {
    return Lasting<HostBlocks>().byNumber;
}

} // namespace

objc::id ReadBlock(WordReader &words) {
    const long number = words.Integer("the number of the block");
    if (number < 1) {
        words.Fail("blocks are counted from 1");
    }
    objc::id &block = Blocks()[number];
    if (block == nullptr) {
        auto fresh = objc::MakeBlock<void()>([] {});
        block = static_cast<objc::id>(_Block_copy(objc::Block<void()>(fresh).pointer));
    }
    return block;
}

Fact NameOfBlock(objc::id block) {
    if (block == nullptr) {
        return {Bare("nil")};
    }
    const auto found = std::ranges::find(Blocks(), block, [](const auto &entry) { return entry.second; });
    if (found == Blocks().end()) {
        return {Bare("<block>")};
    }
    return {Bare("block"), Bare(found->first)};
}

} // namespace sim::hosts

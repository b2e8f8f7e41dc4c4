#include "hosts/chained_calls.hpp"

#include "hosts/inventory.hpp"
#include "runtime/lasting.hpp"

#include <memory>
#include <vector>

namespace sim::hosts {
namespace {

struct ChainedCall {
    std::string selector;
    std::function<void()> work;
    bool underWay = false;
};

/// While a call is under way; also when it raises.
class UnderWay {
  public:
    explicit UnderWay(ChainedCall &call) : call_(call) {
        call_.underWay = true;
    }
    UnderWay(const UnderWay &) = delete;
    UnderWay &operator=(const UnderWay &) = delete;
    ~UnderWay() {
        call_.underWay = false;
    }

  private:
    ChainedCall &call_;
};

using ChainedCalls = std::vector<std::shared_ptr<ChainedCall>>;

} // namespace

std::string ReadSelector(WordReader &words) {
    const std::string selector = words.Name("a selector");
    if (!TheInventory().selectors.contains(selector)) {
        words.Fail("the app has no method " + selector);
    }
    return selector;
}

void ChainWork(const std::string &selector, std::function<void()> work) {
    Lasting<ChainedCalls>().push_back(std::make_shared<ChainedCall>(ChainedCall{selector, std::move(work)}));
}

void ChainCall(const std::string &selector, Invocation invocation) {
    ChainWork(selector, [held = std::make_shared<Invocation>(std::move(invocation))] { held->Send(); });
}

void MakeChainedCalls(const std::string &selector) {
    const ChainedCalls calls = Lasting<ChainedCalls>(); // what one of them does may begin others, or end all
    for (const std::shared_ptr<ChainedCall> &call : calls) {
        if (call->selector == selector && !call->underWay) {
            const UnderWay now(*call);
            call->work();
        }
    }
}

void EndChainedCalls() {
    Lasting<ChainedCalls>().clear();
}

} // namespace sim::hosts

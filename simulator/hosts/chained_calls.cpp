#include "hosts/chained_calls.hpp"

#include "runtime/lasting.hpp"

#include <list>

namespace sim::hosts {
namespace {

struct ChainedCall {
    std::string selector;
    Invocation invocation;
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

using ChainedCalls = std::list<ChainedCall>;

} // namespace

void ChainCall(const std::string &selector, Invocation invocation) {
    Lasting<ChainedCalls>().push_back({selector, std::move(invocation)});
}

void MakeChainedCalls(const std::string &selector) {
    for (ChainedCall &call : Lasting<ChainedCalls>()) {
        if (call.selector == selector && !call.underWay) {
            const UnderWay now(call);
            call.invocation.Send();
        }
    }
}

void EndChainedCalls() {
    Lasting<ChainedCalls>().clear();
}

} // namespace sim::hosts

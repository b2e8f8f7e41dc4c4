#include "window/host_events.hpp"

#include <string_view>

namespace sim::window {
namespace {

struct SendingMethod {
    std::string_view host;
    const char *method; // class and selector
};

constexpr SendingMethod kSendingMethods[] = {
    {"douyin", "HTSLiveCommentStore sendCommentWithCommentContext:completion:"},
    {"douyin", "HTSLiveCommentFragment sendComment:commentContext:completion:"},
    {"douyin", "HTSLiveCommentFragment sendComment:enterSource:requestSource:trackParams:completion:"},
    {"kuaishou", "KSSLiveCommentBarService comment:"},
    {"kuaishou", "KSLiveCommentService comment:completion:"},
    {"kuaishou", "KSLivePreviewSendCommentComponent sendComment:source:"},
    {"wechat", "MMLiveCommentView didCommitText:"},
    {"xhs", "XYLivePlayDecorateView sendFasterChatMsg:"},
    {"xhs", "XYCommentBar sendButtonTapped:"},
    {"xhs", "XYLiveImEngine sendCustomWithMsg:succ:fail:"},
};

} // namespace

std::string EnterRoom(int number) {
    constexpr int kFirstRoom = 1001;
    return "host enter \"" + std::to_string(kFirstRoom + number - 1) + "\"";
}

std::vector<std::string> ThrowWhenSending(const std::string &host) {
    std::vector<std::string> lines;
    for (const SendingMethod &sending : kSendingMethods) {
        if (sending.host == host) { // nobody knows whether a comment will be sent while it throws
            lines.push_back(std::string("host throw maybe ") + sending.method + " \"asked for in the window\"");
        }
    }
    return lines;
}

} // namespace sim::window

#include "hosts/host.hpp"

namespace sim::hosts {

// A new app is one line here and a folder with its class. The class is only named here, its own file makes it.
constexpr HostEntry kHosts[] = {
    {"douyin", "com.ss.iphone.ugc.Aweme", &MakeHost<class Douyin>},
    {"kuaishou", "com.jiangjia.gif", &MakeHost<class Kuaishou>},
    {"plain", "org.example.plain", &MakeHost<class Plain>},
    {"wechat", "com.tencent.xin", &MakeHost<class WeChat>},
    {"xhs", "com.xingin.discover", &MakeHost<class Xiaohongshu>},
};

std::span<const HostEntry> Hosts() {
    return kHosts;
}

} // namespace sim::hosts

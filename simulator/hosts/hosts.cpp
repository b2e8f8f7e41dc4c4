#include "hosts/douyin/douyin.hpp"
#include "hosts/host.hpp"
#include "hosts/kuaishou/kuaishou.hpp"
#include "hosts/plain/plain.hpp"
#include "hosts/wechat/wechat.hpp"
#include "hosts/xiaohongshu/xiaohongshu.hpp"

namespace sim::hosts {

std::span<const HostEntry> Hosts() {
    static constexpr HostEntry kHosts[] = {
        {"douyin", "com.ss.iphone.ugc.Aweme", &MakeDouyin}, {"kuaishou", "com.jiangjia.gif", &MakeKuaishou},
        {"plain", "org.example.plain", &MakePlain},         {"wechat", "com.tencent.xin", &MakeWeChat},
        {"xhs", "com.xingin.discover", &MakeXiaohongshu},
    };
    return kHosts;
}

} // namespace sim::hosts

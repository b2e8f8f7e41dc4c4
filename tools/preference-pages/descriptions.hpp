#pragma once
// What the user guide and the grid page say of each preference, in both languages. Key, type, default, range and the
// control's title come from the library's own tables.

namespace pages {

struct Description {
    const char *key;
    const char *english;
    const char *chinese;
    /// Who changes it, where no row of the settings panel tells.
    const char *englishChangedBy = nullptr;
    const char *chineseChangedBy = nullptr;
};

inline constexpr Description kDescriptions[] = {
    {"Corvel.config.matrixScale", "scale of the matrix and of the text in it", "矩阵及其文字的缩放比例"},
    {"Corvel.config.matrixAlpha", "opacity of the matrix", "矩阵的不透明度"},
    {"Corvel.config.fontSize", "size of the comments in the matrix, in points, before scaling",
     "矩阵中弹幕的字号，以点为单位，未乘缩放比例"},
    {"Corvel.config.matrixBackgroundColor", "background of the matrix, drawn half transparent",
     "矩阵的背景颜色，以半透明绘制"},
    {"Corvel.config.buttonBgColor", "background of the cells, drawn at 60 %", "格子的背景颜色，以 60 % 不透明度绘制"},
    {"Corvel.config.buttonTextColor", "text of the cells", "格子的文字颜色"},
    {"Corvel.config.gridPresetIndex",
     "size of the grid: 0 to 7 are 4, 12, 16, 20, 25, 36, 42 and 48 cells, any other number is the custom size",
     "网格的大小：0 到 7 依次为 4、12、16、20、25、36、42、48 格，其他数字为自定义大小",
     "the two rows of 矩阵规模 (8 for 自定义)", "“矩阵规模”的两行选项（8 为“自定义”）"},
    {"Corvel.config.gridCustomCols", "columns of the custom size, 1 to 12; 0 counts as 4",
     "自定义大小的列数，1 到 12；0 按 4 计", "field 列数", "输入框“列数”"},
    {"Corvel.config.gridCustomRows", "rows of the custom size, 1 to 12; 0 counts as 4",
     "自定义大小的行数，1 到 12；0 按 4 计", "field 行数", "输入框“行数”"},
    {"Corvel.config.floatButtonAlpha", "opacity of the float button and the capture button",
     "悬浮球和截图按钮的不透明度"},
    {"Corvel.config.floatAutoSnap", "after a drag the float button moves to the nearer side edge",
     "拖动后悬浮球自动靠到较近的侧边"},
    {"Corvel.position.floatButton.x", "centre of the float button from the left edge, in points",
     "悬浮球中心到屏幕左边的距离，以点为单位", "dragging the button", "拖动悬浮球"},
    {"Corvel.position.floatButton.y", "centre of the float button from the top, in points",
     "悬浮球中心到屏幕顶边的距离，以点为单位", "dragging the button", "拖动悬浮球"},
    {"Corvel.config.showCaptureButton", "a button below the float button takes a picture of the screen",
     "在悬浮球下方显示一个截图按钮"},
    {"Corvel.config.autoCaptureAfterSend", "every sent comment takes a picture of the screen",
     "每发送一条弹幕就截一张图"},
    {"Corvel.wc.floatSwitch", "in WeChat only: YES hides everything of Corvel", "仅微信：YES 隐藏 Corvel 的全部界面",
     "WeChat's plugin manager", "微信的插件管理器"},
    {"Corvel.ui.section.style.collapsed", "kept for older configurations; folds nothing",
     "为旧配置保留，不折叠任何内容", "nothing; stored when the settings panel first opens",
     "无；设置面板第一次打开时写入"},
    {"Corvel.ui.section.config.collapsed", "the section 插件配置 is folded", "“插件配置”一节是否折叠",
     "a tap on its header; stored when the settings panel first opens", "点该节标题；设置面板第一次打开时写入"},
    {"Corvel.ui.section.latency.collapsed", "the section 延迟优化(实验) is folded", "“延迟优化(实验)”一节是否折叠",
     "a tap on its header; stored when the settings panel first opens", "点该节标题；设置面板第一次打开时写入"},
    {"Corvel.debug.logEnabled", "lines are written to the debug log", "是否写调试日志",
     "an imported configuration only", "只能由导入的配置打开"},
    {"Corvel.debug.logBuffer", "the debug log, its last 40000 UTF-16 units",
     "调试日志，最多保留最后 40000 个 UTF-16 单元", "the log itself; 清除调试日志 empties it",
     "日志自身；“清除调试日志”将其清空"},
    {"Corvel.debug.featuresEnabled", "the settings panel shows the buttons for the debug log",
     "设置面板中是否显示调试日志的按钮", "a long press on 清除插件配置", "长按“清除插件配置”"},
    {"Corvel.latency.strictDanmakuBuffer", "Douyin: the player starts with little buffered and retries fast",
     "抖音：播放器少缓冲即开播，并快速重试"},
    {"Corvel.latency.delayPreJoinBinding", "stored only; changes nothing", "只保存，不起作用"},
    {"Corvel.latency.fastCommentPath",
     "Douyin: a comment that the comment store cannot take is marked as urgent; effective at once",
     "抖音：评论仓库无法接收的弹幕标记为紧急；立即生效"},
    {"Corvel.latency.streamDataFirst", "Douyin: stream data is loaded first", "抖音：优先加载流数据"},
    {"Corvel.latency.forceCachalot", "Douyin: the faster transports are always chosen", "抖音：总是选用较快的传输方式"},
    {"Corvel.latency.playerOptimization", "Douyin: the player adapts when it retries, scalable video is off",
     "抖音：播放器重试时自适应，并关闭可伸缩视频编码"},
};

/// The rows of the settings panel in English, for the grid page: the panel itself speaks Chinese.
struct EnglishTitle {
    const char *key;
    const char *title;
};

inline constexpr EnglishTitle kEnglishTitles[] = {
    {"Corvel.config.matrixScale", "Scale"},
    {"Corvel.config.matrixAlpha", "Opacity of the grid"},
    {"Corvel.config.floatButtonAlpha", "Opacity of the buttons"},
    {"Corvel.config.fontSize", "Size of the text"},
    {"Corvel.config.matrixBackgroundColor", "Background"},
    {"Corvel.config.buttonBgColor", "Cells"},
    {"Corvel.config.buttonTextColor", "Text"},
    {"Corvel.config.autoCaptureAfterSend", "Capture after sending"},
    {"Corvel.config.showCaptureButton", "Capture button"},
    {"Corvel.config.floatAutoSnap", "Docking"},
    {"Corvel.latency.strictDanmakuBuffer", "Strict comment buffer"},
    {"Corvel.latency.delayPreJoinBinding", "Delayed pre-join binding"},
    {"Corvel.latency.fastCommentPath", "Fast comment path"},
    {"Corvel.latency.streamDataFirst", "Stream data first"},
    {"Corvel.latency.forceCachalot", "Force Cachalot"},
    {"Corvel.latency.playerOptimization", "Low-latency player"},
};

} // namespace pages

#include "settings/settings_sections.hpp"

#include "overlay/panel.hpp"
#include "preferences/preferences.hpp"
#include "settings/settings_content.hpp"
#include "settings/settings_panel.hpp"
#include "settings/settings_views.hpp"

#include <algorithm>
#include <iterator>

namespace corvel {
namespace {

/// On the panel: its parts.
constexpr objc::AssociationKey kFixedBlock{"fixed_block"};
constexpr objc::AssociationKey kSectionRecords{"sections"};
constexpr objc::AssociationKey kFooter{"footer"};

/// On a section's header: the key of its fold state.
constexpr objc::AssociationKey kFoldKey{"collapse_key"};

constexpr double kHeaderStep = 44;

/// A section that folds.
struct Section {
    ns::Literal title;
    const BoolPreference &folded;
    /// Adds what stands below the header; gives its height.
    double (*addContent)(ui::View container);
};

constexpr Section kSections[] = {
    {u"插件配置"_literal, kConfigSectionCollapsed, &AddConfigurationButtons},
    {u"延迟优化(实验)"_literal, kLatencySectionCollapsed, &AddLatencyRows},
};

/// The header's title with the arrow that tells the fold state.
objc::Ref<ns::String> HeaderTitle(bool folded, ns::String title) {
    const ns::String arrow = folded ? u"▶"_ns : u"▼"_ns;
    const objc::ArgumentSlot arguments[] = {reinterpret_cast<objc::ArgumentSlot>(arrow.pointer),
                                            reinterpret_cast<objc::ArgumentSlot>(title.pointer)};
    return ns::Formatted("%@ %@"_ns, arguments);
}

cg::Rect HeaderFrame(double y) {
    return {{12, y}, {276, 36}};
}

ui::Button AddHeader(ui::View container, const Section &section) {
    const auto header = AddSystemButton(container, HeaderFrame(0), HeaderTitle(section.folded.Read(), section.title),
                                        ui::Color::labelColor(), objc::Selector<"dm_tog:">());
    header.setBackgroundColor(ui::Color::systemGrayColor().colorWithAlphaComponent(0.08));
    header.layer().setCornerRadius(10);
    header.titleLabel().setFont(ui::Font::boldSystemFontOfSize(14));
    header.setContentHorizontalAlignment(UIControlContentHorizontalAlignmentLeft);
    header.setTitleEdgeInsets({.left = 8});
    objc::SetAssociated(header, kFoldKey, section.folded.key());
    return header;
}

/// Adds a view as wide as the card and as high as what it is filled with.
ui::View AddBlock(ui::View container, double (*addContent)(ui::View)) {
    const auto block = ui::MakeView<ui::View>({{0, 0}, {kSettingsWidth, 0}});
    const double height = addContent(block);
    block->setFrame({{0, 0}, {kSettingsWidth, height}});
    container.addSubview(block);
    return block;
}

/// Adds a section's views and its record: what a layout needs to know of it.
void AddSection(ui::View container, ns::MutableArray records, const Section &section) {
    const ui::Button header = AddHeader(container, section);
    const auto content = AddBlock(container, section.addContent);
    const auto record = ns::New<ns::MutableDictionary>();
    record->setObject(section.folded.key(), "key"_ns);
    record->setObject(header, "header"_ns);
    record->setObject(content, "content"_ns);
    records.addObject(record.get());
}

/// Puts a block at y and moves y below it.
void PlaceBlock(ui::View block, double &y) {
    const double height = block.frame().size.height;
    block.setFrame({{0, y}, {kSettingsWidth, height}});
    y += height;
}

/// Lays a section out at y and moves y below it.
void LayoutSection(ns::Dictionary record, double &y) {
    const auto header = objc::As<ui::Button>(record.objectForKey("header"_ns));
    const auto content = objc::As<ui::View>(record.objectForKey("content"_ns));
    const bool folded = ReadBoolPreference(objc::As<ns::String>(record.objectForKey("key"_ns)));
    const ns::String title = header.titleForState(UIControlStateNormal)
                                 .stringByReplacingOccurrencesOfString(u"▶ "_ns, ""_ns)
                                 .stringByReplacingOccurrencesOfString(u"▼ "_ns, ""_ns);
    header.setTitle(HeaderTitle(folded, title), UIControlStateNormal);
    header.setFrame(HeaderFrame(y));
    y += kHeaderStep;
    content.setHidden(folded);
    content.setAlpha(folded ? 0 : 1);
    if (!folded) {
        PlaceBlock(content, y);
    }
}

} // namespace

void StoreMissingFoldStates() {
    kStyleSectionCollapsed.StoreInitial();
    kConfigSectionCollapsed.StoreInitial();
    kLatencySectionCollapsed.StoreInitial();
    SynchronizeDefaults();
}

void AddSettingsContent(ui::View panel, ui::ScrollView scrollView) {
    objc::SetAssociated(panel, kFixedBlock, AddBlock(scrollView, &AddFixedRows));
    const auto records = ns::New<ns::MutableArray>();
    for (const Section &section : kSections) {
        AddSection(scrollView, records, section);
    }
    objc::SetAssociated(panel, kSectionRecords, records.get());
    objc::SetAssociated(panel, kFooter, AddBlock(scrollView, &AddFooter));
}

void LayoutSettingsSections() {
    const ui::View panel = SettingsPanel().view();
    if (!panel) {
        return;
    }
    double y = 10;
    PlaceBlock(objc::GetAssociated<ui::View>(panel, kFixedBlock), y);
    y += 10;
    for (const auto record : objc::GetAssociated<ns::ArrayOf<ns::Dictionary>>(panel, kSectionRecords)) {
        LayoutSection(record, y);
    }
    PlaceBlock(objc::GetAssociated<ui::View>(panel, kFooter), y);
    objc::As<ui::ScrollView>(SettingsPanel().content()).setContentSize({kSettingsWidth, y + 20});
}

void HandleSectionHeader(objc::Class, objc::SEL, ui::Button header) {
    const auto key = objc::GetAssociated<ns::String>(header, kFoldKey);
    const auto *const section =
        std::ranges::find_if(kSections, [&](const Section &each) { return each.folded.Is(key); });
    if (section == std::end(kSections)) {
        return;
    }
    section->folded.Write(!section->folded.Read());
    LayoutSettingsSections();
}

} // namespace corvel

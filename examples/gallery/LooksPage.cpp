#include "LooksPage.h"

#include <vector>

#include "Words.h"
#include "toolkit/DVCheckBox2.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVEdit2.h"

namespace gallery {

namespace {

struct Scheme {
    std::u16string name;
    DOVA::Color background;
    DOVA::Color foreground;
};

const std::vector<Scheme> s_schemes{
    {u"sea", DOVA::Color::fromRgb(0, 92, 138), DOVA::Color::fromRgb(255, 255, 255)},
    {u"sun", DOVA::Color::fromRgb(255, 214, 64), DOVA::Color::fromRgb(64, 32, 0)},
    {u"night", DOVA::Color::fromRgb(20, 20, 40), DOVA::Color::fromRgb(200, 210, 255)},
};

}  // namespace

LooksPage::LooksPage(DOVA::DVTabContainer2* book, EventLog& log)
    : GalleryPage(book, u"Looks", log) {
    auto& rows = addGroup(u"The sample");
    m_sample = &addButton(addRow(rows), u"Sample", [this] { tell(u"The sample was clicked"); });
    m_sample->setToolTip(u"Just a sample");
    auto& controls = addGroup(u"What becomes of it");
    addStates(controls);
    auto& grid = add<DOVA::DVGridLayout2>(controls);
    addToolTip(grid);
    addColours(grid);
    addSizes(controls);
}

void LooksPage::addStates(DOVA::DVLayout2& layout) {
    auto& row = addRow(layout);
    auto& visible = add<DOVA::DVCheckBox2>(row, u"Visible");
    visible.setChecked(true);
    visible.onToggle([this, &visible] { m_sample->setVisible(visible.isChecked()); });
    auto& enabled = add<DOVA::DVCheckBox2>(row, u"Enabled");
    enabled.setChecked(true);
    enabled.onToggle([this, &enabled] { m_sample->setEnabled(enabled.isChecked()); });
}

void LooksPage::addToolTip(DOVA::DVLayout2& layout) {
    auto& toolTip = addLabelled<DOVA::DVEdit2>(layout, u"Tooltip", m_sample->toolTip());
    toolTip.onEdit([this, &toolTip] { m_sample->setToolTip(toolTip.text()); });
}

void LooksPage::addColours(DOVA::DVLayout2& layout) {
    auto& colours = addLabelled<DOVA::DVComboBox2>(layout, u"Colours");
    for (const Scheme& scheme : s_schemes) {
        colours.addItem(scheme.name);
    }
    colours.onSelect([this, &colours] { paint(colours.selectedItem()); });
}

void LooksPage::paint(const std::u16string& schemeName) {
    for (const Scheme& scheme : s_schemes) {
        if (scheme.name == schemeName) {
            m_sample->setColor(DOVA::ColorRole::Background, scheme.background);
            m_sample->setColor(DOVA::ColorRole::Foreground, scheme.foreground);
        }
    }
}

// Sizes reach the page once it shows the widget, so they are set by hand here. A negative number
// leaves that side as it is.
void LooksPage::addSizes(DOVA::DVLayout2& layout) {
    auto& row = addRow(layout);
    addButton(row, u"300 or wider", [this] {
        m_sample->setMinimumSize({300, -1});
        tell(u"At least " + number(m_sample->minimumSize().width));
    });
    addButton(row, u"60 or higher", [this] { m_sample->setMinimumSize({-1, 60}); });
    addButton(row, u"200 at most", [this] {
        m_sample->setMinimumSize({0, 0});
        m_sample->setMaximumSize({200, -1});
    });
    addButton(row, u"160 by 40", [this] { m_sample->resize({160, 40}); });
}

}  // namespace gallery

// Made from protocol/ by protocol/generate.mjs; do not edit.
#include "PropertyNames.h"

namespace DOVA::keys {

const QString id = QStringLiteral("id");
const QString type = QStringLiteral("type");
const QString contents = QStringLiteral("contents");
const QString msgType = QStringLiteral("msgType");
const QString parentId = QStringLiteral("parentId");
const QString level = QStringLiteral("level");
const QString title = QStringLiteral("title");
const QString body = QStringLiteral("body");
const QString modal = QStringLiteral("modal");
const QString visible = QStringLiteral("visible");
const QString enable = QStringLiteral("enable");
const QString tooltip = QStringLiteral("tooltip");
const QString style = QStringLiteral("style");
const QString label = QStringLiteral("label");
const QString text = QStringLiteral("text");
const QString entries = QStringLiteral("entries");
const QString currentindex = QStringLiteral("currentindex");
const QString editable = QStringLiteral("editable");
const QString placeholder = QStringLiteral("placeholder");
const QString checkable = QStringLiteral("checkable");
const QString checked = QStringLiteral("checked");
const QString icon = QStringLiteral("icon");
const QString defaultbutton = QStringLiteral("defaultbutton");
const QString buddy = QStringLiteral("buddy");

}  // namespace DOVA::keys

namespace DOVA::received {

const QString id = QStringLiteral("id");
const QString event = QStringLiteral("event");
const QString value = QStringLiteral("value");
const QString index = QStringLiteral("index");
const QString newIndex = QStringLiteral("newIndex");
const QString increaseFontSize = QStringLiteral("increaseFontSize");
const QString decreaseFontSize = QStringLiteral("decreaseFontSize");
const QString resize = QStringLiteral("resize");
const QString geometry = QStringLiteral("geometry");
const QString frameGeometry = QStringLiteral("frameGeometry");
const QString maximized = QStringLiteral("maximized");
const QString minimized = QStringLiteral("minimized");
const QString x = QStringLiteral("x");
const QString y = QStringLiteral("y");
const QString width = QStringLiteral("width");
const QString height = QStringLiteral("height");

}  // namespace DOVA::received

namespace DOVA::events {

const QString onClick = QStringLiteral("onClick");
const QString onToggle = QStringLiteral("onToggle");
const QString onEdit = QStringLiteral("onEdit");
const QString onEditFinish = QStringLiteral("onEditFinish");
const QString onSelectionChange = QStringLiteral("onSelectionChange");
const QString textShown = QStringLiteral("textShown");
const QString tabchanged = QStringLiteral("tabchanged");
const QString close = QStringLiteral("close");

}  // namespace DOVA::events

namespace DOVA::kinds {

const std::string dialog = "Dialog";
const std::string panel = "Panel";
const std::string groupBox = "GroupBox";
const std::string tabContainer = "TabContainer";
const std::string tab = "Tab";
const std::string boxLayout = "BoxLayout";
const std::string gridLayout = "GridLayout";
const std::string button = "Button";
const std::string checkBox = "CheckBox";
const std::string comboBox = "ComboBox";
const std::string edit = "Edit";
const std::string text = "Text";
const std::string abstractWindow = "WebAbstractWindow2";
const std::string container = "WebContainer2";
const std::string layout = "WebLayout2";

}  // namespace DOVA::kinds

namespace DOVA::words {

const std::u16string refresh = u"refresh";
const std::u16string messageBox = u"messagebox";
const std::u16string descriptionVersion = u"0.5";
const std::u16string close = u"close";
const std::u16string standardButtonSet = u"StandardButtonSet";
const std::u16string north = u"North";
const std::u16string south = u"South";
const std::u16string west = u"West";
const std::u16string east = u"East";

}  // namespace DOVA::words

namespace DOVA::names {

const std::u16string type = u"type";
const std::u16string visible = u"visible";
const std::u16string enable = u"enable";
const std::u16string tooltip = u"tooltip";
const std::u16string style = u"style";
const std::u16string raise = u"raise";
const std::u16string update = u"update";
const std::u16string refresh = u"refresh";
const std::u16string setFocus = u"setFocus";
const std::u16string adjustsize = u"adjustsize";
const std::u16string updateEnabled = u"updateEnabled";
const std::u16string objectName = u"objectName";
const std::u16string geometry = u"geometry";
const std::u16string moveTo = u"moveTo";
const std::u16string resize = u"resize";
const std::u16string setPreferredSize = u"setPreferredSize";
const std::u16string setMinimumWidth = u"setMinimumWidth";
const std::u16string setMinimumHeight = u"setMinimumHeight";
const std::u16string setMaximumWidth = u"setMaximumWidth";
const std::u16string setMaximumHeight = u"setMaximumHeight";
const std::u16string saveGeometry = u"saveGeometry";
const std::u16string rowSpan = u"rowSpan";
const std::u16string colSpan = u"colSpan";
const std::u16string title = u"title";
const std::u16string windowicon = u"windowicon";
const std::u16string showMinimized = u"showMinimized";
const std::u16string showNormal = u"showNormal";
const std::u16string showMaximized = u"showMaximized";
const std::u16string activateWindow = u"activateWindow";
const std::u16string frameGeometry = u"frameGeometry";
const std::u16string move = u"move";
const std::u16string modal = u"modal";
const std::u16string transient = u"transient";
const std::u16string scrollable = u"scrollable";
const std::u16string maximized = u"maximized";
const std::u16string minimized = u"minimized";
const std::u16string version = u"version";
const std::u16string command = u"command";
const std::u16string layoutGrid = u"layoutGrid";
const std::u16string meta = u"meta";
const std::u16string flat = u"flat";
const std::u16string tabposition = u"tabposition";
const std::u16string tabcount = u"tabcount";
const std::u16string closable = u"closable";
const std::u16string documentmode = u"documentmode";
const std::u16string movable = u"movable";
const std::u16string name = u"name";
const std::u16string spacing = u"spacing";
const std::u16string enabled = u"enabled";
const std::u16string invalidate = u"invalidate";
const std::u16string label = u"label";
const std::u16string text = u"text";
const std::u16string entries = u"entries";
const std::u16string currentindex = u"currentindex";
const std::u16string editable = u"editable";
const std::u16string select = u"select";
const std::u16string placeholder = u"placeholder";
const std::u16string checkable = u"checkable";
const std::u16string checked = u"checked";
const std::u16string icon = u"icon";
const std::u16string defaultbutton = u"defaultbutton";
const std::u16string buddy = u"buddy";
const std::u16string backgroundColor = u"backgroundColor";
const std::u16string color = u"color";

}  // namespace DOVA::names

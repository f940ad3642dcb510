// Made from protocol/ by protocol/generate.mjs; do not edit.
#pragma once

#include <QString>
#include <string>

/// The members of messages, and of what controls describe: for QJsonObject.
namespace DOVA::keys {

extern const QString id;
extern const QString type;
extern const QString contents;
extern const QString msgType;
extern const QString parentId;
extern const QString level;
extern const QString title;
extern const QString body;
extern const QString modal;
extern const QString visible;
extern const QString enable;
extern const QString tooltip;
extern const QString style;
extern const QString label;
extern const QString text;
extern const QString entries;
extern const QString currentindex;
extern const QString editable;
extern const QString placeholder;
extern const QString checkable;
extern const QString checked;
extern const QString icon;
extern const QString defaultbutton;
extern const QString buddy;

}  // namespace DOVA::keys

/// The members of what a client sends.
namespace DOVA::received {

extern const QString id;
extern const QString event;
extern const QString value;
extern const QString index;
extern const QString newIndex;
extern const QString increaseFontSize;
extern const QString decreaseFontSize;
extern const QString resize;
extern const QString geometry;
extern const QString frameGeometry;
extern const QString maximized;
extern const QString minimized;
extern const QString x;
extern const QString y;
extern const QString width;
extern const QString height;

}  // namespace DOVA::received

/// What can have happened to an object of a client.
namespace DOVA::events {

extern const QString onClick;
extern const QString onToggle;
extern const QString onEdit;
extern const QString onEditFinish;
extern const QString onSelectionChange;
extern const QString textShown;
extern const QString tabchanged;
extern const QString close;

}  // namespace DOVA::events

/// What an object is. An object with a model element bears the name of the element's type.
namespace DOVA::kinds {

extern const std::string dialog;
extern const std::string panel;
extern const std::string groupBox;
extern const std::string tabContainer;
extern const std::string tab;
extern const std::string boxLayout;
extern const std::string gridLayout;
extern const std::string button;
extern const std::string checkBox;
extern const std::string comboBox;
extern const std::string edit;
extern const std::string text;
extern const std::string abstractWindow;
extern const std::string container;
extern const std::string layout;

}  // namespace DOVA::kinds

/// Words that stand as values.
namespace DOVA::words {

extern const std::u16string refresh;
extern const std::u16string messageBox;
extern const std::u16string descriptionVersion;
extern const std::u16string close;
extern const std::u16string standardButtonSet;
extern const std::u16string north;
extern const std::u16string south;
extern const std::u16string west;
extern const std::u16string east;

}  // namespace DOVA::words

/// The properties, for the typed operations of objects.
namespace DOVA::names {

extern const std::u16string type;
extern const std::u16string visible;
extern const std::u16string enable;
extern const std::u16string tooltip;
extern const std::u16string style;
extern const std::u16string raise;
extern const std::u16string update;
extern const std::u16string refresh;
extern const std::u16string setFocus;
extern const std::u16string adjustsize;
extern const std::u16string updateEnabled;
extern const std::u16string objectName;
extern const std::u16string geometry;
extern const std::u16string moveTo;
extern const std::u16string resize;
extern const std::u16string setPreferredSize;
extern const std::u16string setMinimumWidth;
extern const std::u16string setMinimumHeight;
extern const std::u16string setMaximumWidth;
extern const std::u16string setMaximumHeight;
extern const std::u16string saveGeometry;
extern const std::u16string rowSpan;
extern const std::u16string colSpan;
extern const std::u16string title;
extern const std::u16string windowicon;
extern const std::u16string showMinimized;
extern const std::u16string showNormal;
extern const std::u16string showMaximized;
extern const std::u16string activateWindow;
extern const std::u16string frameGeometry;
extern const std::u16string move;
extern const std::u16string modal;
extern const std::u16string transient;
extern const std::u16string scrollable;
extern const std::u16string maximized;
extern const std::u16string minimized;
extern const std::u16string version;
extern const std::u16string command;
extern const std::u16string layoutGrid;
extern const std::u16string meta;
extern const std::u16string flat;
extern const std::u16string tabposition;
extern const std::u16string tabcount;
extern const std::u16string closable;
extern const std::u16string documentmode;
extern const std::u16string movable;
extern const std::u16string name;
extern const std::u16string spacing;
extern const std::u16string enabled;
extern const std::u16string invalidate;
extern const std::u16string label;
extern const std::u16string text;
extern const std::u16string entries;
extern const std::u16string currentindex;
extern const std::u16string editable;
extern const std::u16string select;
extern const std::u16string placeholder;
extern const std::u16string checkable;
extern const std::u16string checked;
extern const std::u16string icon;
extern const std::u16string defaultbutton;
extern const std::u16string buddy;
extern const std::u16string backgroundColor;
extern const std::u16string color;

}  // namespace DOVA::names

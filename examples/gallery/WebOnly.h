#pragma once

#include <string>

#include "toolkit/DVAbstractButton2.h"
#include "toolkit/DVComboBox2.h"
#include "toolkit/DVEdit2.h"

/// What the toolkit's front classes have no setter for is set on the web object behind them. Where
/// there is none, nothing happens.
namespace gallery {

/// `file`: an image below HostOptions::applicationRoot; empty for none.
void setIcon(DOVA::DVAbstractButton2& button, const std::string& file);
/// A checkable button stays down when it is pressed, until it is pressed again.
void setCheckable(DOVA::DVAbstractButton2& button, bool checkable);
/// A hint that stands in the field while it is empty.
void setPlaceholder(DOVA::DVEdit2& edit, const std::u16string& hint);
void setPlaceholder(DOVA::DVComboBox2& comboBox, const std::u16string& hint);

}  // namespace gallery

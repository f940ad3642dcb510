#pragma once

namespace DOVA {

/// Where a widget stands within its cell.
enum class Alignment {
    None = 0,
    Top = 1,
    LeftAndTop = 2,
    HCenterAndTop = 3,
    RightAndTop = 4,
    LeftAndVCenter = 5,
    Center = 6,
    RightAndVCenter = 7,
    Bottom = 8,
    LeftAndBottom = 9,
    HCenterAndBottom = 10,
    RightAndBottom = 11
};

/// The direction in which a box layout stacks its widgets.
enum class Direction { LeftToRight = 0, RightToLeft = 1, TopToBottom = 2, BottomToTop = 3 };

/// Where a combo box puts a text that the user typed.
enum class ComboInsertPolicy { NoInsert = 0, InsertAtTop = 1, InsertAtBottom = 2 };

/// The side of a tab container on which the names of its pages stand.
enum class Position { North = 1, South = 2, West = 4, East = 8 };

/// A corner of a widget.
enum class WindowCorner { TopLeft = 0, TopRight = 1, BottomLeft = 2, BottomRight = 3 };

/// Ways in which a widget takes the keyboard focus.
enum class FocusPolicy { None = 0, Tab = 1, Click = 2, Strong = 3 };

enum class SizeConstraint { Default = 0, Fixed = 1, Minimum = 2, Maximum = 3 };

enum class SizePolicy { Fixed = 0, Minimum = 1, Maximum = 4, Preferred = 5, Expanding = 7 };

/// The shape of the pointer over a widget.
enum class CursorShape { Arrow = 0, IBeam = 1, Wait = 2, PointingHand = 3 };

enum class WindowState : unsigned { Minimized = 1, Maximized = 2, FullScreen = 4, Active = 8 };

/// Bits of a window that a dialog is created with.
enum class DialogFlag : unsigned { None = 0, Modal = 1, StaysOnTop = 2 };

}  // namespace DOVA

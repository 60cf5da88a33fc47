// Tab order as the controls are laid out: top to bottom, left to right, a list's column of
// buttons right after the list, each page of a tab widget after its tab bar.
#pragma once

class QWidget;

namespace VorDPMTabOrder {

// Sets the focus chain of `window`'s controls from their places the first time the window is
// shown, when every layout has given its controls their geometry. A button that Qt would have
// made the dialog's default from the order of creation stays the default.
void FollowLayout(QWidget* window);

}  // namespace VorDPMTabOrder

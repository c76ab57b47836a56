// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QAbstractButton;

/// Presses and releases the left mouse button over a button, long enough to be seen. The events go
/// to the button's window, which finds the widget under the mouse: a disabled, hidden or covered
/// button is not clicked. Returns after everything that the click causes, modal boxes included.
/// @return whether the button was clicked
bool press(QAbstractButton& button);

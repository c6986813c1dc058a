// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// The message boxes of a list. They run event loops of their own, in which anything may be destroyed,
/// the box with its parent too. Texts are shown as they stand, never as rich text. GUI thread.
namespace listboxes {

/// A question captioned "Confirmation" with Yes and No. No is the default, and what Escape, closing the
/// box and the parent's destruction answer. True: Yes.
bool confirm(QWidget *parent, const QString &question);
/// A message with an OK button.
void critical(QWidget *parent, const QString &caption, const QString &text);

} // namespace listboxes

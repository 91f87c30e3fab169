#pragma once

#include "panels/common/Text.h"

#include <stdexcept>
#include <utility>

class QString;
class QWidget;

// The message boxes of the program, each with one OK button, and its questions. They show plain text, so that
// nothing in a text from the library is taken for markup, and none opens once the host window has begun to
// close.

void ShowErrorBox(QWidget* parent, const QString& title, const QString& text);
void ShowInformationBox(QWidget* parent, const QString& title, const QString& text);
/// Whether the operator answered Yes rather than No.
bool AskYesOrNo(QWidget* parent, const QString& title, const QString& text);

/// Runs a slot's library calls. A failure becomes an error box whose text is the prefix and the
/// exception's text. Returns whether the calls came to their end.
template <class Calls>
bool Guarded(QWidget* parent, const QString& title, const QString& prefix, Calls&& calls) {
    try {
        std::forward<Calls>(calls)();
        return true;
    } catch (const std::runtime_error& error) {
        ShowErrorBox(parent, title, prefix + FromLibrary(error.what()));
        return false;
    }
}

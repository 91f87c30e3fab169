#pragma once

#include "panels/common/LastResort.h"
#include "panels/common/Text.h"

#include <QPointer>
#include <QString>

#include <stdexcept>
#include <utility>

class QWidget;

// The message boxes of the program, each with one OK button, and its questions. They show plain text, so that
// nothing in a text from the library is taken for markup, and none opens once the host window has begun to
// close.

void ShowErrorBox(QWidget* parent, const QString& title, const QString& text);
void ShowInformationBox(QWidget* parent, const QString& title, const QString& text);
/// Whether the operator answered Yes rather than No.
bool AskYesOrNo(QWidget* parent, const QString& title, const QString& text);

/// Where the failures of one page are shown: over it, under its title, with a text that begins with its prefix.
class ErrorBox {
public:
    explicit ErrorBox(QWidget* boxParent, const QString& boxTitle, const QString& textPrefix = QString())
        : parent(boxParent), title(boxTitle), prefix(textPrefix) {}

    /// Shows a failure, which the top-level exception handler then does not show a second time.
    void Show(const std::runtime_error& error) const {
        const QString text = FromLibrary(error.what());
        const LastResort::ShownByPage shown(text);
        ShowErrorBox(parent, title, prefix + text);
    }

    /// Runs library calls and shows a std::runtime_error; an exception of another type goes to the top-level handler.
    /// Never throws. Returns whether the calls came to their end.
    template <class Calls>
    bool Try(Calls&& calls) const {
        try {
            std::forward<Calls>(calls)();
            return true;
        } catch (const std::runtime_error& error) {
            Show(error);
        } catch (...) {
            LastResort::ReportCurrentException();
        }
        return false;
    }

private:
    QPointer<QWidget> parent;
    QString title;
    QString prefix;
};

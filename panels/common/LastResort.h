#pragma once

#include <QString>

#include <utility>

// The top-level exception handler: a failure that has no box of its own becomes a critical box, titled with the
// program's name, once the event that failed is over. The program goes on.
namespace LastResort {

/// Queues the box. Boxes of several failures come one after another; a text that waits, is shown, or was shown by a
/// page in the same event, is not shown again, and none is shown when the host window has begun to close. May be called
/// from any thread.
void Report(const QString& text);

/// The text of the exception that is being handled; to be called from a catch block only.
QString CurrentText();

/// Reports the exception that is being handled; to be called from a catch block only.
void ReportCurrentException();

/// A page shows this text itself: while this exists, and until the event in which it ends is over, the text is not
/// reported again. GUI thread only.
class ShownByPage {
public:
    explicit ShownByPage(const QString& shownText);
    ~ShownByPage();
    ShownByPage(const ShownByPage&) = delete;
    ShownByPage& operator=(const ShownByPage&) = delete;

private:
    const QString text;
};

/// Runs calls in a place that no exception may pass through, such as a slot of a list's row change. Returns whether
/// they came to their end.
template <class Calls>
bool Run(Calls&& calls) {
    try {
        std::forward<Calls>(calls)();
        return true;
    } catch (...) {
        ReportCurrentException();
        return false;
    }
}

} // namespace LastResort

#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class HostWindow;

namespace TavikLibrary {
class TavikDynamic;
} // namespace TavikLibrary

/// Tells the operator in the status bar how far a dynamic collection has got, twice a second.
class DynamicActivity : public QObject {
    Q_OBJECT

public:
    DynamicActivity();

    /// The collection that has just been started; neither may go before End.
    void Begin(HostWindow& window, TavikLibrary::TavikDynamic& dynamic);
    /// Clears the status bar, if there was something to tell.
    void End();

private:
    void Tell();

    QTimer timer;
    QElapsedTimer since;
    HostWindow* window = nullptr; ///< null when there is nothing to tell
    TavikLibrary::TavikDynamic* dynamic = nullptr;
};

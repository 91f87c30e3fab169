#include "app/ErrorDecoder.h"

#include "library/TavikServer.h"
#include "panels/common/MessageBoxes.h"

#include <QInputDialog>

void DecodeError(QWidget* parent, TavikLibrary::TavikServer& server) {
    constexpr int largestCode = 131072;
    const QString title = QStringLiteral("Tavik Error Decoder");
    bool accepted = false;
    const int code = QInputDialog::getInt(parent, title, QStringLiteral("Please enter the error code."), 0, 0,
                                          largestCode, 1, &accepted);
    if (accepted) {
        ShowInformationBox(parent, title,
                           QStringLiteral("Error Decode:\n") + FromLibrary(server.GetErrorDescription(code)));
    }
}

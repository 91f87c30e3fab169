#pragma once

#include <QLabel>

/// A label whose text is a caption, tab characters and a value. The caption stands at the left edge and
/// the value at the right one, so that the values of labels of one width stand below each other whatever
/// the font.
class CapabilityLabel : public QLabel {
    Q_OBJECT

public:
    using QLabel::QLabel;

    /// Shows whether something is capable of what the prefix names; tab characters stand at the prefix's end.
    void ShowCapability(const char* prefixAndTabs, bool capable);
    /// Shows the caption without a value.
    void ShowNothing();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

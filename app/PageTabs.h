#pragma once

#include <QTabWidget>

/// The pages of the window. The caption of the network's page is a text of any length: its tab becomes narrower, and
/// its text ends in an ellipsis, where all tabs would not fit beside each other.
class PageTabs : public QTabWidget {
    Q_OBJECT

public:
    /// Index of the network's page.
    static constexpr int networkPage = 1;

    explicit PageTabs(QWidget* parent = nullptr);

    /// Adds a page, or changes the caption of one. "&" is a letter in it; the tool tip shows it whole.
    void ShowPage(QWidget* page, const QString& caption);
};

#pragma once

class QLabel;
class QLineEdit;
class QListWidget;
class QRadioButton;
class QString;

/// Shows a text in a read-only field from its beginning, and whole as a tool tip, since it may be longer than
/// the field.
void ShowInField(QLineEdit* field, const QString& text);
void ShowInField(QLabel* field, const QString& text);

/// Checks or unchecks one of several buttons that exclude each other. Unlike a click, this can leave all unchecked.
void Check(QRadioButton* button, bool checked);

/// Makes a list large enough to show all its rows without scrolling.
void FitToRows(QListWidget* list);

#pragma once

class QLineEdit;
class QListWidget;
class QString;

/// Shows a text in a read-only field from its beginning, and whole as a tool tip, since it may be longer than
/// the field.
void ShowInField(QLineEdit* field, const QString& text);

/// Makes a list large enough to show all its rows without scrolling.
void FitToRows(QListWidget* list);

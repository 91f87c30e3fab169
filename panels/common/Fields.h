#pragma once

class QLineEdit;
class QRadioButton;
class QString;

/// Shows a text in a read-only field from its beginning, and whole as a tool tip, since it may be longer than
/// the field.
void ShowInField(QLineEdit* field, const QString& text);

/// Checks or unchecks one button of a pair. Unlike a click, this can leave both unchecked.
void Check(QRadioButton* button, bool checked);

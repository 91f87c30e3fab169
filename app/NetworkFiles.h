#pragma once

#include <QString>

class QWidget;

// The files that describe networks, which the library reads and writes.

/// Asks for the file to load. Empty if the operator cancels.
QString AskFileToLoad(QWidget* parent);

/// Asks for the file to save, whose name ends in ".xml", and whether an existing one is written over. Empty if the
/// operator cancels or declines.
QString AskFileToSave(QWidget* parent);

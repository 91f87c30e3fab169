#pragma once

#include <QString>

#include <string>

// Which boxes the program may show.

/// Whether the library may refuse this operation on a bench on which nothing fails, because of what the operator did.
bool MayBeRefused(const std::string& operation);
/// Whether the program itself, without a failed call, says this in an error box.
bool IsOwnWord(const QString& title, const QString& text);
/// Whether the program has an information box or a question of this title.
bool IsKnownTitle(const QString& title);

#pragma once

#include <QString>

#include <cstddef>
#include <string>

/// The firmware number in a hand tool's reply to IDENTIFY: the number that the four bytes from a position on
/// begin with, with 2 decimals. Empty when they begin with no number or the reply is too short.
QString FirmwareNumber(const std::string& reply, std::size_t position);

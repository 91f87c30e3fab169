#pragma once

#include <QString>

// The benches of the front-end's tests.
namespace Benches {

/// Row 0, "Alpha": connects (its ID and description change by it), can do everything; lists two probes (the
/// second without a probe identity) and a linear encoder; KX00000004 is on the wire, KX00000005 announces itself.
/// Row 1, "Beta": connects; has no capability and no ultra-high speed; lists a read-mode module.
QString Two();
/// As Two, with a network "Dead" before the others that does not connect.
QString FirstDead();
QString None();
/// One network "Alpha" with these modules, each an element of a bench file.
QString With(const QString& modules, const QString& networkAttributes = QString());

} // namespace Benches

#pragma once

/// The threads of this process besides the one that asks.
namespace OtherThreads {

/// Waits until each of them waits for something, so that what they do comes at the same place in every run.
void LetThemRest();
/// Waits until each of them has been awake since, or has been waiting for long: a thread that looks at the bench again
/// and again has seen it as it is now.
void LetThemLook();

} // namespace OtherThreads

#pragma once

// What this process holds on to.

struct Sample {
    double residentBytes = 0.0;
    double heapBytes = 0.0; ///< asked for and not given back
    double threads = 0.0;
    double files = 0.0;   ///< open file descriptors
    double objects = 0.0; ///< objects of Qt; 0 until they are counted
};

/// From now on the objects of Qt that are made and deleted are counted. Call it before there is any, on the first
/// thread; false where this Qt does not tell.
bool CountObjects();

/// Throws std::runtime_error where the system does not tell.
Sample TakeSample();

#pragma once

#include <QTest>

/// How long what must happen is waited for, in milliseconds: long enough for the busiest computer.
constexpr int waitTimeoutMs = 60000;

// QtTest gives what must come true five seconds, which a busy computer may need for other things.
#undef QTRY_VERIFY
#undef QTRY_COMPARE
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, waitTimeoutMs)
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, waitTimeoutMs)

#pragma once

#include "tools/driver/WaitTimeout.h"

#include <QTest>

/// Ends the test function that a failed check belongs to. The check itself has been reported before.
struct TestAbort {};

// A failed check in a helper ends the test function that called the helper, however deep: the macros of QtTest return
// from the helper only, and the test function goes on without what the helper was to prepare.
#undef QVERIFY
#undef QVERIFY2
#undef QCOMPARE
#undef QFAIL
#define QVERIFY(condition)                                                                                             \
    RequireCheck(QTest::qVerify(static_cast<bool>(condition), #condition, "", __FILE__, __LINE__))
#define QVERIFY2(condition, description)                                                                               \
    RequireCheck((condition) ? QTest::qVerify(true, #condition, "", __FILE__, __LINE__)                                \
                             : QTest::qVerify(false, #condition, description, __FILE__, __LINE__))
#define QCOMPARE(actual, expected)                                                                                     \
    RequireCheck(QTest::qCompare(actual, expected, #actual, #expected, __FILE__, __LINE__))
#define QFAIL(description)                                                                                             \
    do {                                                                                                               \
        QTest::qFail(description, __FILE__, __LINE__);                                                                 \
        throw TestAbort();                                                                                             \
    } while (false)

inline void RequireCheck(bool passed) {
    if (!passed) {
        throw TestAbort();
    }
}

/// A test class whose functions QtTest calls through a handler of TestAbort.
template <class Test>
class GuardedTest : public Test {
public:
    const QMetaObject* metaObject() const override {
        static const QMetaObject guarded = Guarded();
        return &guarded;
    }

private:
    static QMetaObject Guarded() {
        QMetaObject guarded = Test::staticMetaObject;
        guarded.d.static_metacall = [](QObject* test, QMetaObject::Call call, int index, void** arguments) {
            try {
                Test::staticMetaObject.d.static_metacall(test, call, index, arguments);
            } catch (const TestAbort&) {
                // The failure is in the report; QtTest goes on with cleanup().
            }
        };
        return guarded;
    }
};

#pragma once

#include <QTest>

// Calls the test's checkState(...) helper and leaves the test function at
// the first failed check, as QCOMPARE does in the test function itself.
#define CHECK_STATE(...)                \
    do {                                \
        checkState(__VA_ARGS__);        \
        if (QTest::currentTestFailed()) \
            return;                     \
    } while (false)

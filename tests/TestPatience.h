// How long tests wait for what must come: as long as the busiest machine needs, not the five seconds of Qt
// Test. It ends the wait at once when it comes. Included by every test, through the precompiled headers.
#pragma once

#include <QtTest>

#undef QTRY_VERIFY
#undef QTRY_VERIFY2
#undef QTRY_COMPARE

#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, 60'000)
#define QTRY_VERIFY2(condition, message) QTRY_VERIFY2_WITH_TIMEOUT(condition, message, 60'000)
#define QTRY_COMPARE(found, expected) QTRY_COMPARE_WITH_TIMEOUT(found, expected, 60'000)

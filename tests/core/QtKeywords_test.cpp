#undef QT_NO_KEYWORDS  // as in a program that uses them
#include <QObject>
// The headers come second here.
#include "PublicHeaders.h"

#include <gtest/gtest.h>

namespace {

/// They did not compile in a program that had included a header of Qt before.
TEST(QtKeywords, stayAndDoNotGetInTheWay) {
    WIRO::Emitter<int(int)> emitter;
    WIRO::connect(emitter, [](int value) { return value + 1; });
    EXPECT_EQ(emit emitter(1), 2);
#undef emit
    EXPECT_EQ(emitter.emit(2), 3);
}

}  // namespace

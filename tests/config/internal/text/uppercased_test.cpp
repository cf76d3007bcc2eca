#include "traderbase/base/config/internal/text/uppercased.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using ttservice::internal::UpperCased;

TEST(UpperCased, AgreesWithThePlatform) {
    std::vector<std::string> texts = {
        "", "SH", "sh", "Sh", "688001", "600000.sh", "股", "股a", std::string("a\0b", 3), "[]`{}@"};
    for (int c = 0; c < 256; ++c)
        texts.push_back("S" + std::string(1, static_cast<char>(c)));
    for (const std::string& text : texts)
        EXPECT_EQ(UpperCased(text).text(), utils::toUpper(text)) << text;
}

TEST(UpperCased, DoesNotCopyUpperCaseText) {
    for (const std::string text : {"", "SH", "A LONG NAME THAT STANDS ON THE HEAP, 600000"})
        EXPECT_EQ(&UpperCased(text).text(), &text);
}

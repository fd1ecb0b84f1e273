#include "devkit/backend/systemFile.h"
#include "devkit/backend/texts.h"
#include "platform/module.h"

#include <gmock/gmock.h>

namespace velk::test {
namespace {

// Every number that the add-in asks for.
// clang-format off
constexpr int32_t asked[] = {
    100, 101, 200, 201, 202, 203, 204, 206, 207, 208, 209, 210, 211, 212, 213, 219,
    300, 301, 302, 303, 304, 305, 306, 314,
    400, 401, 405, 406, 407, 408, 409, 410, 412, 413, 414, 415, 416, 418, 421, 424, 426, 427, 428, 429, 430,
    431, 432, 433, 434, 438, 439, 440, 443, 444, 445,
    500, 501, 502, 503, 504, 505, 506, 507, 508, 509, 510, 511, 512, 513, 514,
    515, 516, 517, 518, 519, 520, 521, 522, 523, 524, 525, 526, 527, 528, 529, 530, 531, 532,
    600, 601, 602, 603, 604, 605, 606, 607, 610, 611,
    641, 642, 643, 644, 645, 646, 647, 655, 656, 657, 658, 659, 660, 669, 670, 671, 675, 681, 682, 683,
};
// clang-format on

class TextNumbers : public testing::TestWithParam<int32_t> {};

TEST_P(TextNumbers, number_askedForByTheAddIn_hasAText)
{
    const auto bytes = devkit::readBytes(module::folder() + L"\\texts.en.txt");
    ASSERT_TRUE(bytes);
    EXPECT_TRUE(devkit::TextTable(devkit::fromUtf8(*bytes)).has(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, TextNumbers, testing::ValuesIn(asked));

} // namespace
} // namespace velk::test

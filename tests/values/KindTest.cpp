#include "values/Kind.h"

#include <gtest/gtest.h>

using namespace values;

namespace {

TEST(KindTest, ReadsTheTagsAsTheyStand)
{
    const std::pair<const char*, Kind> rows[] = {
        {"REAL", Kind::Real},    {"ENUM", Kind::Enum},       {"STRING", Kind::String},
        {"TIME_H", Kind::TimeH}, {"TIME_HM", Kind::TimeHM},  {"TIME_HMS", Kind::TimeHMS},
        {"", Kind::Other},       {"real", Kind::Other},      {"REAL ", Kind::Other},
        {"TIME", Kind::Other},   {"TIME_HMSS", Kind::Other}, {"BYTE", Kind::Other},
    };
    for (const auto& [tag, kind] : rows)
        EXPECT_EQ(kindOf(QString(tag)), kind) << tag;
}

} // namespace

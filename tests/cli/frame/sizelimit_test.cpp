#include "cli/frame/sizelimit.h"
#include <gtest/gtest.h>

TEST(SizeLimit, TakesNumbersWithUnits) {
    const struct {
        const char* Text;
        std::optional<std::uint64_t> Size;
    } rows[] = {
        {"0", 0},
        {"4096", 4'096},
        {"1K", 1'024},
        {"20m", 20'971'520},
        {"2G", 2'147'483'648},
        {"3g", 3'221'225'472},
        {"18446744073709551615", UINT64_MAX},
        {"17179869183G", 18'446'744'072'635'809'792U},
        {"17179869184G", std::nullopt},
        {"18446744073709551616", std::nullopt},
        {"", std::nullopt},
        {"K", std::nullopt},
        {"1T", std::nullopt},
        {"1KB", std::nullopt},
        {"1 K", std::nullopt},
        {"-1", std::nullopt},
        {"+1", std::nullopt},
        {" 1", std::nullopt},
        {"1.5G", std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ParseSize(row.Text), row.Size) << row.Text;
        EXPECT_EQ(ComplaintOfSize(row.Text),
                  row.Size
                      ? ""
                      : "'" + std::string(row.Text) +
                            "' is no size: a number of bytes, or one with K, M or G behind it");
    }
}

TEST(SizeLimit, HoldsForItsLifetime) {
    {
        const TSizeLimit outer("2K");
        EXPECT_EQ(GetFileSizeLimit(), 2'048U);
        {
            const TSizeLimit inner("");
            EXPECT_EQ(GetFileSizeLimit(), 2'048U);
        }
        EXPECT_EQ(GetFileSizeLimit(), 2'048U);
    }
    EXPECT_EQ(GetFileSizeLimit(), kUsualFileSizeLimit);
}

#include "services/designdatabase/hdbbase.h"
#include "tests/support/slots.h"
#include <gtest/gtest.h>

namespace {

class Entity : public hdb::IHDBBase {
public:
    void Accept(IBaseVisitor*) const override {}
    const char* GetName() const override { return "counter"; }
    TRope GetFullName() override { return "work.counter"; }
    hdb::TItemKind GetHDBItemKind() override { return hdb::ITEM_KIND_FILE; }
    THdlLanguage GetLanguage() override { return LANGUAGE_VHDL; }
    const hdb::IHDBBase* GetSourceParent(bool) const override { return nullptr; }
    bool IsProtected() const override { return false; }
};

}  // namespace

TEST(HDBBase, DumpGivesTheName) {
    EXPECT_EQ(Entity().dump(), TRope("counter"));
}

TEST(HDBBase, KeepsItsSlotOrder) {
    EXPECT_EQ(SlotOf(&hdb::IAccept::Accept), 1);
    EXPECT_EQ(SlotOf(&hdb::IHDBBase::GetName), 2);
    EXPECT_EQ(SlotOf(&hdb::IHDBBase::GetFullName), 3);
    EXPECT_EQ(SlotOf(&hdb::IHDBBase::GetHDBItemKind), 4);
    EXPECT_EQ(SlotOf(&hdb::IHDBBase::GetLanguage), 5);
    EXPECT_EQ(SlotOf(&hdb::IHDBBase::GetSourceParent), 6);
    EXPECT_EQ(SlotOf(&hdb::IHDBBase::IsProtected), 7);
    EXPECT_EQ(SlotOf(&hdb::IHDBBase::dump), 8);
}

TEST(HDBBase, FileItemsHaveKindZero) {
    EXPECT_EQ(hdb::ITEM_KIND_FILE, 0);
}

TEST(Rope, ComparesByteByByte) {
    struct Row {
        const char* label;
        TRope a;
        TRope b;
        int order;  // the sign of a <=> b
    };
    const Row rows[] = {
        {"equal", "fifo", "fifo", 0},
        {"case counts", "Fifo", "fifo", -1},
        {"prefix first", "fifo", "fifo2", -1},
        {"null is empty", static_cast<const char*>(nullptr), "", 0},
        {"zero bytes count", std::string("a\0b", 3), std::string("a\0a", 3), 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.a == row.b, row.order == 0);
        EXPECT_EQ(row.a < row.b, row.order < 0);
        EXPECT_EQ(row.a > row.b, row.order > 0);
    }
}

TEST(Rope, TellsItsTextAndLength) {
    const TRope empty;
    EXPECT_TRUE(empty.IsEmpty());
    EXPECT_STREQ(empty.c_str(), "");
    const TRope name(std::string("fifo"));
    EXPECT_FALSE(name.IsEmpty());
    EXPECT_EQ(name.Length(), 4u);
    EXPECT_STREQ(name.c_str(), "fifo");
    EXPECT_EQ(name.Str(), "fifo");
}

#include "EngineFixture.h"

using engine::RecordView;

class RunRecordTest : public engine::EngineTest {};

TEST_F(RunRecordTest, NeverKept_LeavesTheListAlone) {
    { RunRecord record(Test(), "I2C Bus"); }
    EXPECT_TRUE(Test().records.empty());
}

TEST_F(RunRecordTest, Keep_Twice_StandsTwice) {
    RunRecord record(Test(), "I2C Bus");
    record.SetResult("text", 6);
    record.Keep();
    record.Keep();
    ASSERT_EQ(Test().records.size(), 2u);
    EXPECT_EQ(Test().records[0], Test().records[1]);
    EXPECT_EQ(Records(), (std::vector<RecordView>{{"I2C Bus", "text", 6}, {"I2C Bus", "text", 6}}));
}

TEST_F(RunRecordTest, KeepAlone_DropsOthersAndItsOwnSecondPlace) {
    RunRecord other(Test(), "other");
    other.Keep();
    RunRecord record(Test(), "I2C Bus");
    record.Keep();
    record.Keep();
    record.KeepAlone();
    ASSERT_EQ(Test().records.size(), 1u);
    EXPECT_EQ(Test().records[0]->Name, "I2C Bus");
}

TEST_F(RunRecordTest, Close_LeavesTheListAsItIs) {
    RunRecord record(Test(), "I2C Bus");
    record.SetResult("text", 6);
    record.Keep();
    record.Close();
    record.SetResult("later", 2);
    record.KeepAlone();
    record.Keep();
    EXPECT_EQ(Records(), (std::vector<RecordView>{{"I2C Bus", "text", 6}}));
    EXPECT_EQ(record.Text(), "later");
}

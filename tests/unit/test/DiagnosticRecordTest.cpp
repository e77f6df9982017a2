#include <gtest/gtest.h>
#include <test/BMCI2C_Test_DiagnosticRecord.h>

TEST(DiagnosticRecord, New_IsUntouched) {
    const BMCI2C_Test_DiagnosticRecord record("I2C Bus");
    EXPECT_TRUE(record.Passed);
    EXPECT_EQ(record.Name, "I2C Bus");
    EXPECT_FALSE(record.CreationTimeStamp.is_interval());
    EXPECT_EQ(record.ErrorCode, "");
    EXPECT_EQ(record.RecordData, "BMCI2C Bus Test hasn't started yet.");
    EXPECT_EQ(record.CompletionState, 0);
    EXPECT_EQ(record.GetCompletionState(), 0);
}

TEST(DiagnosticRecord, New_HasNoResultsYet) {
    const BMCI2C_Test_DiagnosticRecord record("I2C Bus");
    EXPECT_EQ(record.ResultArray.size(), 0u);
    EXPECT_EQ(record.LogArray.size(), 0u);
    EXPECT_EQ(record.ResponseLog.size(), 0u);
    EXPECT_TRUE(record.ResultValid);
    EXPECT_FALSE(record.ResultFlag);
    EXPECT_EQ(record.MachineType, "");
    EXPECT_TRUE(record.MachineTypeValid);
    EXPECT_EQ(record.BiosId, "");
    EXPECT_FALSE(record.ResponseReceived);
    EXPECT_FALSE(record.CommandSent);
    EXPECT_EQ(record.ResponseLength, 0);
    EXPECT_FALSE(record.CompletionCodeOk);
    EXPECT_TRUE(record.Messages.empty());
}

TEST(DiagnosticRecord, GetCompletionState_GivesTheStateUnchanged) {
    BMCI2C_Test_DiagnosticRecord record("I2C Bus");
    record.CompletionState = -7;
    EXPECT_EQ(static_cast<DiagnosticRecord&>(record).GetCompletionState(), -7);
}

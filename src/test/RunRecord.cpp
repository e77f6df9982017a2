#include <test/RunRecord.h>

RunRecord::RunRecord(DiagService& ownerTest, const std::string& testName)
    : test(ownerTest),
      unkept(std::make_unique<BMCI2C_Test_DiagnosticRecord>(testName)),
      record(unkept.get()) {}

void RunRecord::SetResult(const std::string& text, std::int32_t completionState) {
    Update([&](DiagnosticRecord& result) {
        result.RecordData = text;
        result.CompletionState = completionState;
    });
}

void RunRecord::Keep() {
    test.AppendRecord(record);
    static_cast<void>(unkept.release());
}

void RunRecord::KeepAlone() {
    test.ReplaceRecords({record});
    static_cast<void>(unkept.release());
}

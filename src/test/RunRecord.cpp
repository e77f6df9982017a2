#include <test/RunRecord.h>

#include <utility>

RunRecord::RunRecord(DiagService& ownerTest, std::string name)
    : test(ownerTest),
      testName(std::move(name)),
      unkept(std::make_unique<BMCI2C_Test_DiagnosticRecord>(testName)),
      record(unkept.get()) {}

void RunRecord::SetResult(const std::string& text, std::int32_t completionState) {
    record->RecordData = text;
    record->CompletionState = completionState;
}

void RunRecord::Keep() {
    if (closed) {
        return;
    }
    test.AppendRecord(record);
    static_cast<void>(unkept.release());
}

void RunRecord::KeepAlone() {
    if (closed) {
        return;
    }
    test.ReplaceRecords({record});
    static_cast<void>(unkept.release());
}

void RunRecord::Close() {
    unkept = std::make_unique<BMCI2C_Test_DiagnosticRecord>(testName);
    record = unkept.get();
    closed = true;
}

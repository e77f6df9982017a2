// The line numbers that location lines of the log carry. Support staff and log filters know these
// numbers, so they are fixed and do not move with the source.
#pragma once

enum class LocationLine : int {
    DataByte = 448,
    FailedBusses = 452,
    RunEnd = 507,
    ParseCatalog = 515,
    SupportCheckBegin = 555,
    SupportCheckEnd = 617,
    MessageBegin = 624,
    MessageHeading = 641,
    MessageEnd = 708,
    CompletionCode = 725,
};

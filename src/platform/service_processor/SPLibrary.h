// The way to the service processors (baseboard management controllers) of this machine.
//
// An object is bound to one controller node and holds no descriptor and no session between
// commands; the caller deletes it.
//
//     std::unique_ptr<SPLibrary> node0(SPLibrary::GetSplibraryInstance(0));
//     unsigned char buffer[256] = {0x01, 0x20, 0x3A, 0x00, 0x09};
//     int length = 250;
//     bool delivered = node0 && node0->sendIPMICommand(buffer, &length, sizeof buffer, true);
#pragma once

class SPLibrary {
public:
    // A new object for controller `node` (from 0), or null when there is no such controller.
    static SPLibrary* GetSplibraryInstance(int node);

    virtual ~SPLibrary() = default;

    // The number of controllers of this machine.
    virtual int GetNumberBMCNode() = 0;

    // True when the controllers are of the OXC family.
    virtual bool IsOxcControllerMachine() = 0;

    // Sends the request in `buffer` and writes the response over it.
    // Request: byte 0 header (0x01), 1 responder address, 2 network function, 3 logical unit,
    // 4 command, 5 to 14 request data (this module's requests have none).
    // Response: bytes 0 to 7 as in the request, byte 8 completion code, data from byte 9 on, zero
    // after the last data byte; data that does not fit the buffer is cut. `length` becomes 1 + the
    // number of data bytes, and at least 2 when the completion code is not 0, so that the code is
    // judged and not the length.
    // Returns false, with buffer and length untouched, when no answer came.
    virtual bool sendIPMICommand(unsigned char* buffer, int* length, int bufferSize,
                                 bool waitForCompletion) = 0;
};

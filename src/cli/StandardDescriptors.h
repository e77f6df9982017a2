// The three standard streams of this process.
#pragma once

namespace cli {

// Opens those of the descriptors 0 to 2 that are closed on /dev/null. Otherwise the next file or
// socket that this process opens would take their place, and error messages would go there. To be
// called before anything else is opened.
void OpenStandardDescriptors();

}  // namespace cli

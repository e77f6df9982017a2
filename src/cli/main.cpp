#include <cli/CommandLine.h>
#include <cli/StandardDescriptors.h>

int main(int argc, char** argv) {
    cli::OpenStandardDescriptors();
    return cli::Main(argc, argv);
}

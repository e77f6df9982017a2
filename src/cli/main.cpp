#include <cli/CommandLine.h>

int main(int argc, char** argv) { return cli::Main(argc, argv); }

# The libraries that the project calls. `./dev` installs their Debian packages.
find_package(Boost 1.74 REQUIRED)
find_package(EXPAT REQUIRED)
find_package(spdlog REQUIRED)
find_package(tomlplusplus REQUIRED)
find_package(CLI11 REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(FREEIPMI REQUIRED IMPORTED_TARGET libfreeipmi)

// Classes of a MOF file written as in classes.txt, inherited members included.
#pragma once

#include <mof/Model.h>

#include <string>
#include <vector>

std::string FlagsText(const mof::Schema& schema, const mof::Class& cls);
std::vector<std::string> PropertyTexts(const mof::Schema& schema, const mof::Class& cls);
std::vector<std::string> MethodTexts(const mof::Schema& schema, const mof::Class& cls);

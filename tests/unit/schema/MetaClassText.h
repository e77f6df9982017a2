// Class descriptions written as in classes.txt.
#pragma once

#include <framework/Meta_Class.h>

#include <string>
#include <vector>

std::string FlagsText(const cimple::Meta_Class& metaClass);
std::vector<std::string> PropertyTexts(const cimple::Meta_Class& metaClass);
std::vector<std::string> MethodTexts(const cimple::Meta_Class& metaClass);

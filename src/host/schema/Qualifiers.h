// Qualifiers of a class and of its members, as a class has them: its own, or those that it
// inherits.
#pragma once

#include <host/schema/ClassRepository.h>

#include <string>

namespace host {

// Where a qualifier stands: at the class itself when both are empty, else at its property, method
// or method's parameter.
struct QualifierPlace {
    std::string property = {};
    std::string method = {};
    std::string parameter = {};
};

// The qualifier's value, typed by its declaration. Throws Failure: CMPI_RC_ERR_INVALID_CLASS for an
// unknown class, CMPI_RC_ERR_NOT_FOUND when neither the class nor an ancestor has the qualifier
// there.
Value QualifierValue(const ClassRepository& classes, const std::string& className,
                     const QualifierPlace& place, const std::string& qualifier);

// The value of a qualifier that stands somewhere. `declaration` may be null: then the value shows
// its type.
Value QualifierValue(const mof::Qualifier& qualifier, const mof::QualifierDeclaration* declaration);

}  // namespace host

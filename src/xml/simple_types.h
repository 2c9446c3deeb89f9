// The library's simple types as neutral values. For this folder only.
#pragma once

#include <deque>
#include <unordered_map>
#include <xercesc/validators/datatype/DatatypeValidator.hpp>

#include "xml/schema_components.h"
#include "xml/transcoding.h"

namespace fdmorph {

/// Makes each type once. The types belong to the table.
class SimpleTypes {
 public:
  SimpleType const* of(xerces::DatatypeValidator& source);

 private:
  SimpleType inherited(xerces::DatatypeValidator& source);

  std::unordered_map<xerces::DatatypeValidator*, SimpleType const*> m_known;
  std::deque<SimpleType> m_types;
};

}  // namespace fdmorph

// Where the XML that the generators write ends up: on the standard output
// stream, whatever stands behind it at the moment.
#pragma once

#include <fstream>
#include <streambuf>
#include <xercesc/framework/XMLFormatter.hpp>

#include "xml/xerces_fwd.h"

namespace fdmorph {

/// Hands the bytes of a formatter to the standard output stream, which is
/// aimed at a file between setTarget and restoreTarget. There is one target at
/// a time; setTarget doesn't nest. While it is set, everything printed on the
/// standard output stream lands in the file.
class CDMDOMFormatTarget : public xerces::XMLFormatTarget {
 public:
  CDMDOMFormatTarget();

  void writeChars(XMLByte const* bytes, XMLSize_t count, xerces::XMLFormatter* formatter) override;

  /// Aims the standard output stream at `file`, which must stay open until
  /// restoreTarget.
  void setTarget(std::ofstream& file);

  /// Gives the standard output stream the buffer that it had when this target
  /// was constructed.
  void restoreTarget();

 private:
  std::streambuf* m_SavedBuffer;
};

}  // namespace fdmorph

#include "xml/expansion_limit.h"

#include <utility>
#include <xercesc/util/RuntimeException.hpp>
#include <xercesc/util/TransENameMap.hpp>
#include <xercesc/util/XMLChTranscoder.hpp>
#include <xercesc/util/XMLExceptMsgs.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "xml/transcoding.h"

namespace fdmorph {
namespace {

ExpansionLimit* innermost = nullptr;

/// Counts the characters of one expansion of an internal entity.
class CountingTranscoder : public xerces::XMLChTranscoder {
 public:
  using XMLChTranscoder::XMLChTranscoder;

  XMLSize_t transcodeFrom(XMLByte const* source, XMLSize_t sourceSize, XMLCh* target,
                          XMLSize_t targetSize, XMLSize_t& bytesEaten,
                          unsigned char* sizes) override {
    XMLSize_t count =
        XMLChTranscoder::transcodeFrom(source, sourceSize, target, targetSize, bytesEaten, sizes);
    if (innermost != nullptr) {
      innermost->countText(count);
      innermost->check();
    }
    return count;
  }
};

/// Makes a transcoder for each expansion.
class CountingMap : public xerces::ENameMap {
 public:
  CountingMap() : ENameMap(xerces::XMLUni::fgXMLChEncodingString) {}

  xerces::XMLTranscoder* makeNew(XMLSize_t blockSize,
                                 xerces::MemoryManager* manager) const override {
    if (innermost != nullptr) innermost->countExpansion();
    return new (manager) CountingTranscoder(getKey(), blockSize, manager);
  }
};

/// Gives access to the library's table of its own encodings.
struct Encodings : xerces::XMLTransService {
  static void install() {
    constexpr auto kOwnCharacters = xerces::XMLRecognizer::XERCES_XMLCH;
    auto const* present = gMappingsRecognizer->elementAt(kOwnCharacters);
    if (dynamic_cast<CountingMap const*>(present) != nullptr) return;
    gMappingsRecognizer->setElementAt(new CountingMap, kOwnCharacters);
  }
};

}  // namespace

ExpansionLimit::ExpansionLimit(ExpansionLimits limits, Refuse refuse)
    : m_limits(limits), m_refuse(std::move(refuse)), m_outer(std::exchange(innermost, this)) {}

ExpansionLimit::~ExpansionLimit() {
  innermost = m_outer;
}

ExpansionLimit* ExpansionLimit::current() {
  return innermost;
}

void ExpansionLimit::check() {
  if (m_expansions > m_limits.expansions) {
    m_refuse("parser has encountered more than '" + std::to_string(m_limits.expansions) +
             "' entity expansions in the document; this is the limit imposed by the application");
    endRefusedParse();
  }
  if (m_text > m_limits.text) {
    m_refuse("entities of the document expand to more than '" + std::to_string(m_limits.text) +
             "' bytes; this is the limit imposed by the application");
    endRefusedParse();
  }
}

void installExpansionCounter() {
  Encodings::install();
}

void endRefusedParse() {
  throw xerces::RuntimeException(__FILE__, __LINE__, xerces::XMLExcepts::Gen_CouldNotOpenExtEntity);
}

}  // namespace fdmorph

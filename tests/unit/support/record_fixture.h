// Record items made by hand, and their output.
#pragma once

#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cobol/record_builder.h"
#include "cobol/record_output.h"
#include "support/captured_console.h"

namespace fdmorph {

class RecordTest : public ConsoleTest {
 protected:
  /// An elementary item of the default size below `parent`.
  CDMCOBOLRecordItem* makeField(CDMCOBOLRecordItem* parent, std::string_view name) {
    CDMCOBOLRecordItem* item = makeGroup(parent, name);
    item->pictureSymbol = "X";
    item->pictureSize = "80";
    return item;
  }

  /// An item without a picture below `parent`: a group, or without children an
  /// item that cannot be written.
  CDMCOBOLRecordItem* makeGroup(CDMCOBOLRecordItem* parent, std::string_view name) {
    CDMCOBOLRecordItem* item = store.create();
    item->levelNumber = parent == nullptr ? 1 : parent->levelNumber + 1;
    item->indent = parent == nullptr ? 7 : parent->indent + 1;
    item->dataName = name;
    item->parent = parent;
    if (parent != nullptr) parent->addChild(item);
    return item;
  }

  CDMCOBOLRecordItem* makeCondition(CDMCOBOLRecordItem* parent, std::string_view name,
                                    std::string_view value) {
    CDMCOBOLRecordItem* item = makeGroup(parent, name);
    item->levelNumber = kConditionLevel;
    item->itemValue = value;
    return item;
  }

  std::string write(CDMCOBOLRecordItem* item, RecordOutput::Options const& options = {}) {
    std::ostringstream stream;
    RecordOutput output(options, store.texts(), stream);
    isWritten = output.OutputCOBOLItem(item);
    return stream.str();
  }

  NamespaceLookup namespaces{nullptr};
  RecordBuilder builder{namespaces};
  RecordStore& store = builder.store();
  bool isWritten = false;
};

}  // namespace fdmorph

// The parts of a record that is a line of JSON.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/document_reader.h"
#include "document/json_line.h"
#include "document/json_scanner.h"
#include "document/name_numbers.h"

namespace fdmorph::document {

/// Makes instances of a line of JSON. Objects and values are parts, and so is each
/// value of an array. A member that is null is left out.
class JsonParts {
 public:
  /// Both must outlive this object. The index matches local names.
  JsonParts(NameNumbers const& index, ReaderOptions const& options);

  /// Reads a line from byte `begin` on into a record, which is empty but for its number
  /// and line. False if the line has only parts that are ignored.
  [[nodiscard]] bool read(std::string_view line, std::size_t begin, DocumentRecord& record);

  /// The same for a line that is not in memory as a whole.
  [[nodiscard]] bool readLong(JsonLine& line, std::size_t begin, DocumentRecord& record);

 private:
  /// What a value is to become. It is no part if it is ignored.
  struct Target {
    std::uint32_t parent = kNoInstance;
    std::uint32_t name = layout::kNone;       // also kTextMember
    std::uint32_t unknownName = kNoInstance;  // in Instances::unknownNames
    bool isPart = false;
    bool isAttribute = false;
    bool isInArray = false;
  };

  struct Member {
    Target target;
    std::size_t offset;  // of its value
    std::uint32_t firstPart = kNoInstance;
    std::uint32_t parts = 0;  // they follow one another among their siblings
  };

  /// An open object or array.
  struct Level {
    enum class Kind : std::uint8_t {
      object,
      array,
      choice,  // the object around a record, if there are several types
    };
    Kind kind;
    bool isFresh = true;               // nothing in it has been read
    std::uint32_t part = kNoInstance;  // of an object; none if it is ignored
    std::size_t members = 0;           // those of the objects around this one
    Target element = {};               // of an array
  };

  struct Fault {
    std::size_t offset;
    ErrorCode code;
    std::string_view text;
    Target target;
    std::uint32_t part;  // to count in an array; none if the fault is of the array
    std::optional<std::string> path = {};  // known as long as its parts are there
  };

  void readWith(JsonScanner& scanner, DocumentRecord& record);
  [[nodiscard]] bool finish(JsonScanner const& scanner, std::size_t malformed);
  void absorbParts();
  [[nodiscard]] bool hasRepeatedMember() const;
  void nameFaults();
  void renumber(Instances::Renumbering const& numbers);
  void readText();
  void readLevel();
  void readMember();
  void readValue(Target const& target);
  void readScalar(Target const& target);
  void open(Level const& level);
  void openArray(Target const& target);
  void closeObject(Level const& level);
  void dropRepeated(Level const& level, std::vector<std::size_t> const& repeated);
  [[nodiscard]] Target memberOf(Level const& level, std::string_view key, bool isBrokenKey);
  [[nodiscard]] std::uint32_t find(std::string_view name);
  std::uint32_t addUnknownName(std::string_view name);
  std::uint32_t addPart(Target const& target, Instance::Shape shape, std::size_t offset);
  void addFault(std::size_t offset, ErrorCode code, std::string_view text, Target const& target,
                std::uint32_t part = kNoInstance);
  void reportMalformed(std::size_t offset, std::string_view text);
  void reportFaults();
  [[nodiscard]] bool isToBeLeftOut(Fault const& fault) const;
  [[nodiscard]] bool isInBroken(std::uint32_t part) const;
  [[nodiscard]] std::string pathOf(Target const& target, std::uint32_t part) const;

  NameNumbers const* m_index;
  ReaderOptions const* m_options;
  std::vector<std::uint32_t> m_followers;  // the name that came after a name
  std::uint32_t m_lastName = 0;
  std::vector<std::uint64_t> m_seen;  // the object that had a name last; attributes apart
  std::uint64_t m_objects = 0;

  JsonScanner* m_scanner = nullptr;
  DocumentRecord* m_record = nullptr;
  std::vector<Level> m_levels;
  std::vector<Member> m_members;  // of the open objects
  std::vector<Fault> m_faults;
  AbsorptionClock m_absorption;
};

}  // namespace fdmorph::document

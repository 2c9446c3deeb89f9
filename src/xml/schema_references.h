// Which schema files refer to each other, as the library finds out when it loads
// them.
//
// Loading a grammar reads everything that the file leads to. The members of one
// circle (a strongly connected component) lead to the same files, so a load
// without a report of one of them shows that the others are good, too, and they
// need no load of their own.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace fdmorph {

/// Files are known by name; the caller gives each file one name.
class SchemaReferences {
 public:
  /// The target namespace of a file; empty if it has none.
  using NamespaceOf = std::function<std::string(std::string const&)>;

  /// Begins the load of `file`.
  void beginLoad(std::string const& file);

  /// Notes that `from` includes or imports `to`, or redefines it.
  void addReference(std::string const& from, std::string const& to, bool isRedefine = false);

  /// Notes that the load reads `file`.
  void addRead(std::string const& file);

  /// Ends a load that gave no report: the members of the circle of its file that
  /// it read are covered. There are two exceptions, where a load may say nothing
  /// of another member by itself. A file without a target namespace takes on that
  /// of a file that includes it, so where some members have a target namespace and
  /// some have none, only those that have one are covered. A file may be redefined
  /// only before anything else refers to it, so a load that meets a redefine covers
  /// none.
  void endCleanLoad(NamespaceOf const& namespaceOf);

  /// True if the load of another member of its circle has shown `file` to be
  /// good.
  [[nodiscard]] bool isCovered(std::string const& file) const;

  /// The number of loads begun so far.
  [[nodiscard]] std::size_t loads() const { return m_loads; }

 private:
  struct File {
    std::vector<std::size_t> referrers;  // in the load that is going on
    std::size_t lastRead = 0;            // number of the last load that read it
    bool isCovered = false;
  };

  std::size_t number(std::string const& file);
  std::vector<std::size_t> circleOfMain() const;

  std::unordered_map<std::string, std::size_t> m_numbers;
  std::vector<File> m_files;            // by number
  std::vector<std::string> m_names;     // by number
  std::vector<std::size_t> m_referred;  // in this load
  bool m_hasRedefine = false;           // the same
  std::size_t m_loads = 0;
  std::size_t m_main = 0;
};

}  // namespace fdmorph

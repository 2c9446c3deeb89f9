// Conditional compilation: which lines of a file count.
#pragma once

#include <vector>

#include "compiler/compile_variables.h"
#include "compiler/diagnostics.h"

namespace fdmorph::compiler {

/// The directives of one file, obeyed in their order: DEFINE, SET CONSTANT,
/// IF, ELIF, ELSE and END-IF, with ">>" or "$" before them.
class ConditionalText {
 public:
  ConditionalText(CompileVariables& variables, Diagnostics& diagnostics)
      : m_variables(variables), m_diagnostics(diagnostics) {}

  /// Obeys a directive: its words, without the mark before them. Reports what
  /// is wrong with it.
  void obey(TextWord const& mark, std::vector<TextWord> const& words);

  /// Whether what follows lies in a branch that isn't taken.
  bool isPassedOver() const { return !m_branches.empty() && !m_branches.back().isTaken; }

  /// Reports branches that are still open. To be called at the file's end.
  void end();

 private:
  /// An IF that isn't closed.
  struct Branch {
    Place place;
    bool isOutside = false;  ///< it lies itself in a branch that isn't taken
    bool isDone = false;     ///< a branch of it was taken
    bool isTaken = false;    ///< the one that is open is
    bool isLast = false;     ///< the one that is open is ELSE
  };

  void define(TextWord const& mark, std::vector<TextWord> const& words);
  void setConstants(std::vector<TextWord> const& words);
  void open(TextWord const& mark, std::vector<TextWord> const& words);
  void change(TextWord const& mark, std::vector<TextWord> const& words);
  void close(TextWord const& mark);
  bool isTrue(TextWord const& mark, std::vector<TextWord> const& words);
  void report(Place place, std::string text) {
    m_diagnostics.report(Code::conditional, place, std::move(text));
  }

  CompileVariables& m_variables;
  Diagnostics& m_diagnostics;
  std::vector<Branch> m_branches;  // outermost first
};

}  // namespace fdmorph::compiler

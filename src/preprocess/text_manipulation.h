// Text manipulation, the second pass: conditional compilation, COPY and REPLACE
// statements, EXEC blocks, and statements that control the listing. The words
// that this pass produces contain none of them.
#pragma once

#include <deque>
#include <memory>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "preprocess/conditional_compilation.h"
#include "preprocess/copy_search.h"
#include "preprocess/replacing.h"
#include "preprocess/text_words.h"
#include "source/diagnostics.h"
#include "source/source_reader.h"
#include "text/text_pool.h"

namespace fdmorph::compiler {

/// The state that all texts of a compilation share.
struct TextContext {
  static constexpr std::size_t kMaxCopyDepth = 64;
  static constexpr std::size_t kMaxCopies = 100000;

  Sources& sources;
  Diagnostics& diagnostics;
  CopySearch& search;
  TextPool& pool;
  ReadingRules rules;
  std::deque<SourceText> texts = {};         ///< all texts that were read; words look at them
  std::vector<SourceFile const*> open = {};  ///< the files being read, outermost first
  std::unordered_set<SourceFile const*> copied = {};
  ReplacementBudget budget = {};
  CompileVariables variables = {};
  bool warnsOfMissingCopies = false;  ///< a member that is not found is no error
  bool isDebugging = false;           ///< debugging lines are part of the program
  Place excludedLine = {};            ///< the first line that a letter in column 7 excludes

  /// Whether the line of a place has text past column 72, which is ignored in
  /// fixed format.
  bool hasTextPastMargin(Place place) const;
};

/// The words of a file, with its COPY statements replaced by the words of the
/// members.
class FileText : public TextSource {
 public:
  /// `copiedFrom` is unknown for the main source.
  FileText(TextContext& context, SourceFile const* file, Place copiedFrom);
  ~FileText() override;

  TextWord next() override;

 private:
  TextWord scan();
  TextWord scanAfterSeparators();
  TextWord scanAny();
  void noteComment(TextWord const& word);
  void noteDebugging(TextWord const& word);
  void applyDirective(TextWord const& mark);
  void reportFaults(bool isEnd);
  void pushBack(TextWord const& word);
  bool handleStatement(TextWord const& word);
  bool listingStatement(TextWord const& word);
  void skipPeriod();
  void copyStatement(TextWord const& word);
  TextWord scanMemberName();
  bool execBlock(TextWord const& word);
  void reportMissing(TextWord const& at, std::string_view member, std::string_view library);
  void open(TextWord const& at, std::string_view member, std::string_view library,
            ReplacementList list);
  bool mayOpen(Place at, SourceFile const* file);

  TextContext& m_context;
  std::uint32_t m_number;
  SourceText const& m_text;
  WordScanner m_scanner;
  ConditionalText m_conditions;
  std::vector<TextWord> m_pushedBack;
  bool m_isDebuggingBefore = false;
  bool m_isIdentification = false;
  bool m_isComment = false;
  std::size_t m_fault = 0;         // index of the next one of the text to report
  bool m_precededBySpace = false;  // the next word follows a statement
  bool m_isStart = true;           // no word has been produced
  std::unique_ptr<FileText> m_member;
  std::unique_ptr<Replacer> m_replacer;  // over m_member
};

}  // namespace fdmorph::compiler

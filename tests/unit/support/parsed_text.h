// A text in free format, and the parts of a parser over its tokens.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "preprocess/conditional_compilation.h"
#include "preprocess/text_words.h"
#include "semantics/data_item.h"
#include "source/diagnostic_output.h"
#include "source/diagnostics.h"
#include "source/source_files.h"
#include "source/source_reader.h"
#include "syntax/clauses.h"
#include "syntax/item_tree.h"
#include "syntax/lexer.h"
#include "syntax/name_parser.h"
#include "syntax/token_stream.h"
#include "syntax/value_parser.h"
#include "text/text_pool.h"

namespace fdmorph::compiler {

/// The words of a text without statements that manipulate it.
class ScannedText : public TextSource {
 public:
  explicit ScannedText(SourceText const& text) : m_scanner(text, 1) {}

  TextWord next() override { return m_scanner.next(); }

 private:
  WordScanner m_scanner;
};

class OneFile : public FileTree {
 public:
  explicit OneFile(std::string content) : m_content(std::move(content)) {}

  std::optional<std::string> read(std::string const& /*path*/) override { return m_content; }

 private:
  std::string m_content;
};

/// The lexer over a text. Names and texts of tokens lie here.
struct LexedText {
  explicit LexedText(std::string const& content) : source(readSource(content, {Format::free, 8})) {}

  SourceText source;
  ScannedText words{source};
  TextPool pool;
  Lexer lexer{words, pool};
};

/// The parts of a parser, for the test of one of them.
struct ParsedText : LexedText {
  explicit ParsedText(std::string const& content) : LexedText(content), files(content) {
    // The first text, in which all places lie.
    static_cast<void>(sources.open(sources.file("a"), {}));
  }

  /// What was reported: `LINE:COLUMN: SEVERITY: TEXT [CODE]`, a line each.
  std::string reports() const {
    std::string text = printDiagnostics(diagnostics);
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
      std::size_t end = text.find('\n', at);
      if (text.compare(at, 2, "a:") == 0) result += text.substr(at + 2, end - at - 1);
      at = end + 1;
    }
    return result;
  }

  OneFile files;
  Sources sources{files};
  Diagnostics diagnostics{sources};
  SyntaxErrors errors{diagnostics};
  TokenStream tokens{lexer, errors};
  DataDivision data;
  ItemTree tree{data, errors};
  NameParser names{tokens, pool, data};
  CompileVariables variables;
  ConstantNames constants{pool, variables};
  ValueParser values{tokens, names, pool, constants, data, tree};
  PictureTable pictures{data, constants};
};

}  // namespace fdmorph::compiler

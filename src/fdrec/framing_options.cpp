#include "fdrec/framing_options.h"

#include <unistd.h>

#include <cstdio>

#include "fdrec/files.h"
#include "fdrec/option_values.h"
#include "source/diagnostics.h"

namespace fdmorph::fdrec {
namespace {

using framing::Format;

constexpr char kGroup[] = "Options of files";
constexpr std::size_t kMaxThreads = 256;

template <typename Value>
CLI::Option* add(CLI::App& app, char const* name, Value& value, char const* type,
                 char const* text) {
  return app.add_option(name, value, text)->option_text(type)->group(kGroup);
}

template <typename Value>
CLI::Option* addNumber(CLI::App& app, char const* name, Value& value, char const* text) {
  return add(app, name, value, "N", text)->transform(decimal());
}

ChosenPart refusePart(std::string const& text, int status, char const* code) {
  printError(text, code);
  return {{}, status};
}

std::string hexText(std::string_view bytes) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  for (char each : bytes) {
    unsigned const byte = static_cast<unsigned char>(each);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

}  // namespace

void FramingOptions::declarePlaces(CLI::App& app) {
  takeWord<Format>(
      add(app, "--format", m_rules.format, "", "how records stand in the file; default: fixed"),
      {{"fixed", Format::fixed},
       {"rdw", Format::rdw},
       {"bdw", Format::bdw},
       {"gnucobol-variable", Format::gnucobolVariable},
       {"lines", Format::lines}});
  addNumber(app, "--length", m_length, "bytes of a record in a fixed file, if longer");
  takeWord<RdwForm>(add(app, "--rdw", m_rdw, "",
                        "form of descriptors: they do not count themselves,\n"
                        "or are little-endian (repeatable)"),
                    {{"exclusive", RdwForm::exclusive}, {"little", RdwForm::little}})
      ->expected(1)
      ->take_all()
      ->allow_extra_args(false)
      ->delimiter(',');
  addNumber(app, "--header", m_rules.header, "leave out N bytes at the beginning of the file");
  addNumber(app, "--trailer", m_rules.trailer, "leave out N bytes at the end of the file");
}

void FramingOptions::declare(CLI::App& app) {
  declarePlaces(app);
  addNumber(app, "--block", m_rules.blockSize, "bytes of a block that is written; default: 32760")
      ->check(CLI::Range(std::uint32_t{1}, framing::kMaxBlock));
  addNumber(app, "--skip", m_rules.skip, "leave out the first N records");
  addNumber(app, "--limit", m_rules.limit, "read N records at most");
  add(app, "--part", m_part, "K/N", "read the K-th of N parts of the file");
  add(app, "--index", m_index, "FILE",
      "the index of the file, for --part; not needed for a\n"
      "fixed file");
  addNumber(app, "--threads", m_threads, "convert with N threads; default: 1")
      ->check(CLI::Range(std::size_t{1}, kMaxThreads));
  app.add_flag("--progress", m_hasProgress, "show how far the run is; default: on a terminal")
      ->group(kGroup);
  app.add_flag("--no-progress", m_isSilent, "do not show it")->group(kGroup);
}

std::string FramingOptions::complete(std::uint64_t length, char blank) {
  for (RdwForm each : m_rdw) {
    if (each == RdwForm::exclusive) m_rules.isRdwExclusive = true;
    if (each == RdwForm::little) m_rules.isRdwLittle = true;
  }
  if (m_length && *m_length < length) {
    return "--length " + std::to_string(*m_length) + " is less than the " + std::to_string(length) +
           " bytes of the record";
  }
  m_rules.recordLength = m_length.value_or(length);
  m_rules.maxRecordLength = m_rules.recordLength;
  m_rules.blank = blank;
  if (m_part.empty()) return {};
  m_parsedPart = framing::parsePart(m_part);
  if (!m_parsedPart) return "expected --part K/N, found " + compiler::quoted(m_part);
  return {};
}

ChosenPart FramingOptions::choosePart(framing::InputStream const& input,
                                      std::string const& name) const {
  if (!m_parsedPart || m_parsedPart->count == 1) return {};
  if (m_rules.format != Format::fixed) return choosePartByIndex(input, name);
  if (!input.end()) {
    return refusePart("--part needs a file of known size, which " + name + " is not", kUsageError,
                      "usage");
  }
  if (m_rules.recordLength == 0) return {};
  std::uint64_t const trailer = std::min(m_rules.trailer, *input.end());
  return {framing::partBySize(*m_parsedPart, m_rules, *input.end() - trailer)};
}

ChosenPart FramingOptions::choosePartByIndex(framing::InputStream const& input,
                                             std::string const& name) const {
  if (m_index.empty()) {
    return refusePart("--part needs --index FILE, unless the format is fixed", kUsageError,
                      "usage");
  }
  std::optional<std::string> const text = readInput(m_index);
  if (!text) return {{}, kFailed};
  framing::ParsedIndex const parsed = framing::parseIndex(*text, m_rules);
  std::string const reason = "cannot use the index " + compiler::quoted(m_index) + ": ";
  if (parsed.fault) return refusePart(reason + *parsed.fault, kErrors, "index");
  std::optional<std::uint64_t> const end = input.end();
  if (end && *end - std::min(*end, m_rules.trailer) != parsed.index.end) {
    return refusePart(reason + "it is of a file of another size than " + name, kErrors, "index");
  }
  return {framing::partByIndex(*m_parsedPart, parsed.index)};
}

bool FramingOptions::hasProgress() const {
  return !m_isSilent && (m_hasProgress || isatty(STDERR_FILENO) == 1);
}

std::string inputName(std::string const& path) {
  return path.empty() ? std::string(compiler::kStandardInput) : path;
}

void printFrameError(std::string const& name, framing::FrameError const& error) {
  std::string line = "fdrec: " + compiler::printable(name);
  line += ": record " + std::to_string(error.number) + ", byte " + std::to_string(error.offset);
  if (!error.found.empty()) {
    line += " (x'" + hexText(error.found) + "'" + (error.isFoundCut ? "..." : "") + ")";
  }
  line.append(": error: ").append(wordsOf(error.fault)).append(" [frame]\n");
  std::fwrite(line.data(), 1, line.size(), stderr);
}

void printReadFailure(std::string const& name, std::string const& reason) {
  printError("cannot read " + compiler::quoted(name) + ": " + reason, "file");
}

}  // namespace fdmorph::fdrec

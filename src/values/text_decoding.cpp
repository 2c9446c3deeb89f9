#include "values/text_decoding.h"

#include <cstring>

#include "values/utf8_reader.h"

namespace fdmorph::values {
namespace {

constexpr std::ptrdiff_t kWord = 8;
constexpr std::uint64_t kOnes = 0x0101010101010101;

std::uint64_t wordAt(unsigned char const* at) {
  std::uint64_t word;
  std::memcpy(&word, at, sizeof word);
  return word;
}

void dropEnd(ByteRun& run, std::uint64_t blanks, bool dropsBlanks) {
  auto const blank = static_cast<unsigned char>(blanks);
  auto isDropped = [&](unsigned char byte) { return byte == 0 || (dropsBlanks && byte == blank); };
  while (run.end - run.begin >= kWord) {
    std::uint64_t const word = wordAt(run.end - kWord);
    if (word != 0 && (word != blanks || !dropsBlanks)) break;
    run.end -= kWord;
  }
  while (run.end > run.begin && isDropped(run.end[-1])) --run.end;
}

/// What is dropped at the beginning or end of a text.
struct Dropped {
  bool isBlank;
  bool isNul;
};

void dropBegin(ByteRun& run, unsigned char blank, Dropped dropped) {
  while (run.begin < run.end &&
         ((dropped.isBlank && *run.begin == blank) || (dropped.isNul && *run.begin == 0))) {
    ++run.begin;
  }
}

void dropBlankEnd(ByteRun& run, unsigned char blank) {
  while (run.end > run.begin && run.end[-1] == blank) --run.end;
}

unsigned unitAt(unsigned char const* at, bool isBigEndian) {
  return isBigEndian ? at[0] * 256U + at[1] : at[1] * 256U + at[0];
}

char* put(char* out, CharacterText const& text) {
  std::memcpy(out, &text, sizeof text);
  return out + (text.length & ~unsigned{CharacterText::kRefused});
}

// The UTF-8 of a character above ASCII.
char* putUtf8(char* out, char32_t code) {
  auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
  if (code < 0x800) {
    *out++ = byte(0xC0 | (code >> 6U));
  } else {
    if (code < 0x10000) {
      *out++ = byte(0xE0 | (code >> 12U));
    } else {
      *out++ = byte(0xF0 | (code >> 18U));
      *out++ = byte(0x80 | ((code >> 12U) & 0x3FU));
    }
    *out++ = byte(0x80 | ((code >> 6U) & 0x3FU));
  }
  *out++ = byte(0x80 | (code & 0x3FU));
  return out;
}

// Copies characters that are one byte of ASCII in the text, 8 at a time. Returns how
// many it copied.
std::ptrdiff_t copyPlain(CharacterTable const& table, ByteRun run, char* out) {
  unsigned char const* at = run.begin;
  for (; run.end - at >= kWord; at += kWord) {
    // What is written in vain is written again.
    bool hasOther = false;
    for (std::ptrdiff_t i = 0; i < kWord; ++i) {
      unsigned char const byte = table.plainBytes[at[i]];
      out[i] = static_cast<char>(byte);
      hasOther |= byte == 0;
    }
    if (hasOther) break;
    out += kWord;
  }
  return at - run.begin;
}

}  // namespace

ByteRun trimmed(ItemFormat const& format, unsigned char const* bytes, Trim trim,
                unsigned char blank) {
  ByteRun run{bytes, bytes + format.size};
  if (format.isJustified) {
    dropBegin(run, blank, {trim != Trim::none, true});
    if (trim == Trim::both) dropBlankEnd(run, blank);
    return run;
  }
  dropEnd(run, blank * kOnes, trim != Trim::none);
  if (trim == Trim::both) dropBegin(run, blank, {true, false});
  return run;
}

ByteRun trimmedNational(ItemFormat const& format, unsigned char const* bytes, Trim trim) {
  constexpr std::ptrdiff_t kUnit = 2;
  ByteRun run{bytes, bytes + format.size};
  auto isDropped = [&](unsigned char const* at, Dropped dropped) {
    unsigned const unit = unitAt(at, format.isBigEndian);
    return (dropped.isBlank && unit == ' ') || (dropped.isNul && unit == 0);
  };
  bool const isBoth = trim == Trim::both;
  Dropped const usual{trim != Trim::none, true};
  Dropped const other{isBoth, false};
  Dropped const atEnd = format.isJustified ? other : usual;
  Dropped const atBegin = format.isJustified ? usual : other;
  while (run.end - run.begin >= kUnit && isDropped(run.end - kUnit, atEnd)) run.end -= kUnit;
  while (run.end - run.begin >= kUnit && isDropped(run.begin, atBegin)) run.begin += kUnit;
  return run;
}

DecodeResult decodeBytes(CharacterTable const& table, ByteRun run, char* out) {
  unsigned refused = 0;
  while (run.begin < run.end) {
    std::ptrdiff_t const copied = copyPlain(table, run, out);
    run.begin += copied;
    out += copied;
    unsigned char const* const stop = run.begin + std::min(kWord, run.end - run.begin);
    for (; run.begin < stop; ++run.begin) {
      CharacterText const& text = table.bytes[*run.begin];
      refused |= text.length;
      out = put(out, text);
    }
  }
  bool const isRefused = (refused & CharacterText::kRefused) != 0;
  return {out, isRefused ? ValueError::character : ValueError::none};
}

DecodeResult decodeUtf8(CharacterTable const& table, ByteRun run, bool forbidsControls, char* out) {
  unsigned refused = 0;
  while (run.begin < run.end) {
    std::ptrdiff_t const copied = copyPlain(table, run, out);
    run.begin += copied;
    out += copied;
    if (run.begin == run.end) break;
    Utf8Character const character =
        readUtf8(run.begin, static_cast<std::size_t>(run.end - run.begin));
    if (character.length == 0) return {out, ValueError::character};
    if (character.length == 1) {
      refused |= table.ascii[*run.begin].length;
      out = put(out, table.ascii[*run.begin]);
    } else if (forbidsControls && !isXmlCharacter(character.code)) {
      refused |= table.forbidden.length;
      out = put(out, table.forbidden);
    } else {
      std::memcpy(out, run.begin, character.length);
      out += character.length;
    }
    run.begin += character.length;
  }
  bool const isRefused = (refused & CharacterText::kRefused) != 0;
  return {out, isRefused ? ValueError::character : ValueError::none};
}

DecodeResult decodeUtf16(CharacterTable const& table, ByteRun run, bool isBigEndian,
                         bool forbidsControls, char* out) {
  unsigned refused = 0;
  for (; run.end - run.begin >= 2; run.begin += 2) {
    char32_t code = unitAt(run.begin, isBigEndian);
    if (isSurrogate(code)) {
      bool const isPair = code < 0xDC00 && run.end - run.begin >= 4;
      char32_t const low = isPair ? unitAt(run.begin + 2, isBigEndian) : 0;
      if (low < 0xDC00 || low >= 0xE000) return {out, ValueError::character};
      code = 0x10000 + ((code - 0xD800) << 10U) + (low - 0xDC00);
      run.begin += 2;
    }
    if (code < table.ascii.size()) {
      refused |= table.ascii[code].length;
      out = put(out, table.ascii[code]);
    } else if (forbidsControls && !isXmlCharacter(code)) {
      refused |= table.forbidden.length;
      out = put(out, table.forbidden);
    } else {
      out = putUtf8(out, code);
    }
  }
  bool const isRefused = (refused & CharacterText::kRefused) != 0;
  return {out, isRefused ? ValueError::character : ValueError::none};
}

}  // namespace fdmorph::values

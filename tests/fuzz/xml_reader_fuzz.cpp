// Documents: what is read does not depend on the blocks that they come in, nor on who
// reads the records. Records that are kept as lines read the same again.

#include "fuzz_input.h"
#include "support/document_fixture.h"

namespace {

constexpr std::string_view kSpelling = "<A><B>1</B></A>";
constexpr std::string_view kShown = "A(B=1)";

/// Takes records that are spelled in one way.
class OneSpelling : public fdmorph::document::RecordPredictor {
 public:
  Outcome read(std::string_view bytes) override {
    if (bytes.starts_with(kSpelling)) return {Outcome::Kind::taken, kSpelling.size()};
    if (kSpelling.starts_with(bytes)) return {Outcome::Kind::incomplete};
    return {Outcome::Kind::declined};
  }
};

/// What is wrong with malformed text, and where, the parser may tell otherwise if a
/// block ends in it.
std::string withoutMalformed(std::string const& text) {
  std::size_t const at = text.find(" xml ");
  return at == std::string::npos ? text : text.substr(0, text.rfind('[', at)) + "[xml]\n";
}

std::string withoutPredictions(std::string text) {
  constexpr std::string_view kPredicted = "predicted\n";
  for (std::size_t at = 0; (at = text.find(kPredicted, at)) != std::string::npos;) {
    text.replace(at, kPredicted.size() - 1, kShown);
  }
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string_view const text = fdmorph::fuzzText(data, size);
  fdmorph::document::DocumentFixture fixture("A B c");
  fixture.names.add("u", "B");
  fixture.names.add("u", "d");
  auto read = [&] { return withoutMalformed(withoutPredictions(fixture.readXml(text))); };
  std::string const whole = read();
  for (std::size_t blockSize : {1U, 7U}) {
    fixture.blockSize = blockSize;
    if (read() != whole) fdmorph::failFuzzRun("blocks change the records", text);
  }
  fixture.blockSize = SIZE_MAX;
  OneSpelling predictor;
  fixture.predictor = &predictor;
  if (read() != whole) fdmorph::failFuzzRun("predictions change the records", text);
  fixture.predictor = nullptr;
  fixture.options.keepsText = true;
  if (read() != whole) fdmorph::failFuzzRun("kept texts change records", text);
  for (std::string const& line : std::vector<std::string>(fixture.texts)) {
    if (line.empty()) continue;
    std::string const again = fixture.readXml("<l>" + line + "</l>");
    if (fixture.texts != std::vector<std::string>{line} || again.find(" xml ") != again.npos) {
      fdmorph::failFuzzRun("a line reads differently", line);
    }
  }
  return 0;
}

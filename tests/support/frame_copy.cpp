// Copies records from one format of files to another.
//
//   frame_copy FROM TO LENGTH < INPUT > OUTPUT
//
// FROM and TO are formats as fdrec has them, LENGTH is that of a fixed record. A fault is
// told on the standard error stream, with status 1.

#include <cstdlib>
#include <iostream>
#include <map>
#include <string>

#include "framing/record_reader.h"
#include "framing/record_writer.h"

using namespace fdmorph::framing;

int main(int count, char** arguments) {
  std::map<std::string, Format> const formats{{"fixed", Format::fixed},
                                              {"rdw", Format::rdw},
                                              {"bdw", Format::bdw},
                                              {"gnucobol-variable", Format::gnucobolVariable},
                                              {"lines", Format::lines}};
  if (count != 4 || !formats.contains(arguments[1]) || !formats.contains(arguments[2])) return 2;
  FramingRules rules;
  rules.recordLength = rules.maxRecordLength = std::strtoull(arguments[3], nullptr, 10);
  rules.format = formats.at(arguments[1]);
  FramingRules target = rules;
  target.format = formats.at(arguments[2]);
  InputStream input;
  OutputStream output;
  if (input.open("") || output.open("")) return 3;
  RecordReader reader(input, rules);
  RecordWriter writer(output, target);
  bool hasFault = false;
  Batch batch;
  while (reader.next(batch)) {
    for (Frame const& each : batch.frames) {
      WriteResult const result = writer.write(batch.data(each));
      if (result == WriteResult::written) continue;
      std::cerr << each.number << ": " << wordsOf(result) << '\n';
      hasFault = true;
    }
    if (!batch.error) continue;
    std::cerr << batch.error->number << ": " << wordsOf(batch.error->fault) << '\n';
    hasFault = true;
  }
  writer.finish();
  if (!output.commit() || input.failure()) return 3;
  return hasFault ? 1 : 0;
}

#include "platform/data/workbook/shared_strings.h"

namespace vorlane::platform {

TextList ReadSharedStrings(RecordStream& stream, const BiffRecord& sst, const RecordText& text) {
  constexpr std::size_t kUsesSize = 4;
  RecordReader reader(stream, sst);
  reader.Skip(kUsesSize);
  const std::uint32_t count = reader.U32();
  TextList texts;
  // The count is only a limit: nothing is set aside for texts not yet seen.
  while (texts.Size() < count && !reader.AtEnd()) {
    const std::uint16_t length = reader.U16();
    text.Read(reader, length, texts.Bytes());
    texts.EndText();
  }
  return texts;
}

}  // namespace vorlane::platform

#include "shared/json_writer.h"

namespace trelin {

void JsonWriter::Begin(char cBracket) {
  StartValue();
  sText_ += cBracket;
  ++nDepth_;
  bFirst_ = true;
}

void JsonWriter::End(char cBracket) {
  --nDepth_;
  if (!bFirst_) NewLine();
  sText_ += cBracket;
  bFirst_ = false;
}

void JsonWriter::Key(std::string_view sKey) {
  StartValue();
  Quote(sKey);
  sText_ += ": ";
  bAfterKey_ = true;
}

void JsonWriter::String(std::string_view sValue) {
  StartValue();
  Quote(sValue);
}

void JsonWriter::Number(long long lValue) {
  StartValue();
  sText_ += std::to_string(lValue);
}

void JsonWriter::Boolean(bool bValue) {
  StartValue();
  sText_ += bValue ? "true" : "false";
}

void JsonWriter::Null() {
  StartValue();
  sText_ += "null";
}

void JsonWriter::StartValue() {
  if (bAfterKey_) {
    bAfterKey_ = false;
    return;
  }
  if (!bFirst_) sText_ += ',';
  if (nDepth_ > 0) NewLine();
  bFirst_ = false;
}

void JsonWriter::NewLine() { sText_.append(1, '\n').append(2 * nDepth_, ' '); }

void JsonWriter::Quote(std::string_view sText) {
  sText_ += '"';
  for (const char c : sText) {
    if (c == '"' || c == '\\') sText_ += '\\';
    if (static_cast<unsigned char>(c) >= ' ') {
      sText_ += c;
      continue;
    }
    const char* const pDigits = "0123456789abcdef";
    const auto nCode = static_cast<unsigned char>(c);
    sText_.append("\\u00").append(1, pDigits[nCode >> 4U]).append(1, pDigits[nCode & 0xFU]);
  }
  sText_ += '"';
}

}  // namespace trelin

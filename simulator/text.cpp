// See text.h. Written by hand instead of through a library because every cell of a result passes
// here: ASCII, nearly all of it, goes straight into the caller's buffer.
#include "simulator/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "base/letters.h"

namespace catalogsim {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// Decodes the character that begins at `position` and moves behind it.
char32_t Decode(std::string_view text, std::size_t& position) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(position++);
  if (lead < 0x80) return lead;
  int continuations = 0;
  char32_t character = 0;
  char32_t least = 0;
  if ((lead & 0xE0) == 0xC0) {
    continuations = 1, character = lead & 0x1FU, least = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    continuations = 2, character = lead & 0x0FU, least = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    continuations = 3, character = lead & 0x07U, least = 0x10000;
  } else {
    return kReplacement;
  }
  for (; continuations > 0; --continuations) {
    if (position >= text.size() || (byte(position) & 0xC0) != 0x80) return kReplacement;
    character = (character << 6) | (byte(position++) & 0x3FU);
  }
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  return character < least || character > 0x10FFFF || surrogate ? kReplacement : character;
}

void Encode(char32_t character, std::string& out) {
  const auto put = [&out](char32_t bits) { out.push_back(static_cast<char>(bits)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0 | (character >> 6)), put(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    put(0xE0 | (character >> 12)), put(0x80 | ((character >> 6) & 0x3F));
    put(0x80 | (character & 0x3F));
  } else {
    put(0xF0 | (character >> 18)), put(0x80 | ((character >> 12) & 0x3F));
    put(0x80 | ((character >> 6) & 0x3F)), put(0x80 | (character & 0x3F));
  }
}

}  // namespace

std::size_t WidenInto(std::string_view utf8, SQLWCHAR* out, std::size_t capacity) {
  const std::size_t direct = std::min(utf8.size(), capacity);
  std::size_t position = 0;
  // Nearly everything is ASCII.
  for (std::uint64_t word = 0; position + sizeof word <= direct; position += sizeof word) {
    std::memcpy(&word, utf8.data() + position, sizeof word);
    if ((word & 0x8080808080808080) != 0) break;
    for (std::size_t i = 0; i < sizeof word; ++i)
      out[position + i] = static_cast<unsigned char>(utf8[position + i]);
  }
  for (; position < direct; ++position) {
    const auto byte = static_cast<unsigned char>(utf8[position]);
    if (byte >= 0x80) break;
    out[position] = byte;
  }
  std::size_t units = position;
  bool room = true;  // once a character was cut, nothing behind it is written
  while (position < utf8.size()) {
    const char32_t character = Decode(utf8, position);
    const std::size_t needed = character >= 0x10000 ? 2 : 1;
    room = room && units + needed <= capacity;
    if (room && needed == 1) {
      out[units] = static_cast<SQLWCHAR>(character);
    } else if (room) {
      const char32_t rest = character - 0x10000;
      out[units] = static_cast<SQLWCHAR>(0xD800 + (rest >> 10));
      out[units + 1] = static_cast<SQLWCHAR>(0xDC00 + (rest & 0x3FF));
    }
    units += needed;
  }
  return units;
}

std::string Narrow(const SQLWCHAR* text, std::size_t length) {
  std::string out;
  out.reserve(length);
  for (std::size_t i = 0; i < length; ++i) {
    const char32_t unit = text[i];
    if (unit < 0xD800 || unit > 0xDFFF) {
      Encode(unit, out);
    } else if (unit < 0xDC00 && i + 1 < length && (text[i + 1] & 0xFC00) == 0xDC00) {
      Encode(0x10000 + ((unit - 0xD800) << 10) + (text[++i] - 0xDC00U), out);
    } else {
      Encode(kReplacement, out);
    }
  }
  return out;
}

std::string TextArgument(const SQLWCHAR* text, SQLLEN length) {
  if (text == nullptr) return {};
  std::size_t characters = 0;
  if (length == SQL_NTS) {
    while (text[characters] != 0) ++characters;
  } else if (length > 0) {
    characters = static_cast<std::size_t>(length);
  }
  return Narrow(text, characters);
}

bool AnswerText(std::string_view text, SQLWCHAR* buffer, SQLLEN capacity, SQLSMALLINT* length) {
  const std::size_t room =
      buffer != nullptr && capacity > 0 ? static_cast<std::size_t>(capacity) - 1 : 0;
  const std::size_t units = WidenInto(text, buffer, room);
  if (buffer != nullptr && capacity > 0) buffer[std::min(units, room)] = 0;
  if (length != nullptr) *length = static_cast<SQLSMALLINT>(units);
  return buffer == nullptr || units <= room;
}

std::string Upper(std::string_view text) { return base::UpperAscii(std::string(text)); }

}  // namespace catalogsim

// The parsers of Universal Server's index keys.
#include "routes/informix/index_keys.h"

#include "base/text.h"
#include "catalogues/conversions.h"

namespace odbcimport::informix {
namespace {

using std::u16string_view;

// The part before the first `mark`; nothing when there is none.
u16string_view Before(u16string_view text, char16_t mark) {
  const auto at = text.find(mark);
  return at == u16string_view::npos ? u16string_view() : text.substr(0, at);
}

void Append(u16string_view number, std::vector<std::int16_t>& out) {
  out.push_back(static_cast<std::int16_t>(CutTo16Bits(base::ParseInteger(number))));
}

}  // namespace

void ParseOnlineColKey(u16string_view item, std::vector<std::int16_t>& out) {
  u16string_view number = base::TrimRightBlanks(Before(item, u'['));
  if (number.starts_with(u'-')) number.remove_prefix(1);
  Append(number, out);
}

void ParseOnlineFuncKey(u16string_view item, std::vector<std::int16_t>& out) {
  const u16string_view function = base::TrimRightBlanks(Before(item, u'-'));
  const auto open = function.find(u'(');
  u16string_view arguments =
      base::TrimBlanks(open == u16string_view::npos ? function : function.substr(open + 1));
  for (auto comma = arguments.find(u','); comma != u16string_view::npos;
       comma = arguments.find(u',')) {
    Append(base::TrimBlanks(arguments.substr(0, comma)), out);
    arguments.remove_prefix(comma + 1);
  }
}

void ParseOnlineIndexKeys(u16string_view index_keys, std::vector<std::int16_t>& out) {
  bool first = true;
  for (auto end = index_keys.find(u']'); end != u16string_view::npos; end = index_keys.find(u']')) {
    u16string_view item = base::TrimLeftBlanks(index_keys.substr(0, end + 1));
    if (!first) {
      if (item.starts_with(u',')) item.remove_prefix(1);
      item = base::TrimLeftBlanks(item);
    }
    if (item.starts_with(u'<')) {
      ParseOnlineFuncKey(item, out);
    } else {
      ParseOnlineColKey(item, out);
    }
    index_keys.remove_prefix(end + 1);
    first = false;
  }
}

}  // namespace odbcimport::informix

// The English texts.
#include "platform/msgtext/msgtext.h"

extern "C" __attribute__((visibility("default"))) const char16_t* GetMessageText(unsigned id) {
  switch (id) {
    case 30003:
      return u"Database error %d, SQLSTATE %s: %s";
    case 30004:
      return u"The result of a database query could not be read.";
    default:
      return nullptr;
  }
}

// Equal things that a server's versions spell differently: what the versions of one server made of
// the same statement. Each rule has its reason.
#pragma once

#include <span>

#include "compare/objects.h"
#include "compare/server_names.h"

namespace wbcompare {

struct Spelling {
  Product product;  // kOther: every product
  std::span<const Property> properties;
  Fact (*plain)(const Fact& fact);  // the one spelling that stands for all
  const char* reason;
  bool views_only = false;
};
[[nodiscard]] std::span<const Spelling> AllSpellings();

// Whether both are one thing, spelled differently.
[[nodiscard]] bool AreSpellingsOfOne(Product product, Object object, Property property,
                                     const Fact& a, const Fact& b);

}  // namespace wbcompare

// The names that a server has, read when they are asked for: what options and request files are
// checked against.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "host/import_run.h"

namespace wbhost {

class ServerNames {
 public:
  // A synonym comes with what the server says of it. The entries live as long as this object.
  using Entries = std::vector<const LcTableInfo*>;
  using Texts = std::vector<std::u16string>;

  // `choices` stays the caller's; its selections do not count here, its owner and catalog do, as
  // they are at the first call.
  ServerNames(const LcImportChoices& choices, ImportRunner& runner)
      : choices_(choices), runner_(runner) {}

  // Each gives nothing where an error, an interrupt or the driver kept the names from being read.
  [[nodiscard]] const std::optional<Entries>& TablesAndViews();
  [[nodiscard]] const std::optional<Entries>& Synonyms();
  // Tables and views of these names alone, of an empty owner those of any. None where that would
  // take as long as all names, or where a recording is made or played: it holds all of them.
  [[nodiscard]] Entries LookUp(const std::vector<LcTableInfo>& names);
  // All owners, whatever the choices say.
  [[nodiscard]] std::optional<Texts> Owners();
  std::optional<Texts> Catalogs() const { return runner_.connection().Catalogs(); }

  // Whether tables or views come for this owner. Of the system, which is in no list, they may.
  [[nodiscard]] bool OwnerHasTables(const std::u16string& owner);

 private:
  [[nodiscard]] std::optional<Entries> Read(const LcImportChoices& choices, std::uint32_t items);

  const LcImportChoices& choices_;
  ImportRunner& runner_;
  std::deque<ImportResult> results_;  // which hold the entries
  std::uint32_t errors_shown_ = 0;
  // The outer one is empty until the names were asked for.
  std::optional<std::optional<Entries>> tables_and_views_;
  std::optional<std::optional<Entries>> synonyms_;
};

}  // namespace wbhost

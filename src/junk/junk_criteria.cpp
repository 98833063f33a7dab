// The two tables of the junk cleaner: from the registry to the lists and back.
#include <string>

#include "helpers/text_helpers.h"
#include "junk/junk.h"
#include "junk/shipped_criteria.h"
#include "registry/stored_settings.h"

namespace tidemark {
namespace {

// One of the three texts of a table, and the value that stores it.
struct Strand {
  const char* value_name;
  std::string& text;
};

// Entries, descriptions and states, in this order.
struct Table {
  Strand entries;
  Strand descriptions;
  Strand states;
  ListView& list;
  const ShippedTable& shipped;
};

Table FileTypesOf(frmMain& window) {
  return {{"FileTypes", window.FileTypes},
          {"FileDesc", window.FileDesc},
          {"FileState", window.FileState},
          window.lvFileTypes,
          kShippedFileTypes};
}

Table ExcludeFoldersOf(frmMain& window) {
  return {{"ExcludeFolder", window.ExcludeFolder},
          {"ExcludeDesc", window.ExcludeDesc},
          {"ExcludeState", window.ExcludeState},
          window.lvExcludeFolders,
          kShippedExcludeFolders};
}

void Read(const Strand& strand, const char* shipped) {
  strand.text = Setting(strand.value_name, shipped);
}

void Write(const Strand& strand) { SaveSetting(strand.value_name, strand.text); }

// A text that is no number can't be compared, and leaves the row clear.
bool IsOne(const std::string& state) { return NumberOf(state) == 1.0; }

void Load(const Table& table) {
  Read(table.entries, table.shipped.entries);
  Read(table.descriptions, table.shipped.descriptions);
  Read(table.states, table.shipped.states);
  table.list.Clear();
  const auto entries = Split(table.entries.text, ';');
  const auto descriptions = Split(table.descriptions.text, ';');
  const auto states = Split(table.states.text, ';');
  for (std::size_t index = 0; index < entries.size(); ++index) {
    ListItem* row = table.list.Add({}, entries[index]);
    row->SetChecked(index < states.size() && IsOne(states[index]));
    if (index < descriptions.size()) row->SetSubItem(1, descriptions[index]);
  }
}

void Save(const Table& table) {
  for (std::string* text : {&table.entries.text, &table.descriptions.text, &table.states.text}) {
    text->clear();
  }
  for (int index = 1; index <= table.list.Count(); ++index) {
    const ListItem& row = *table.list.Item(index);
    table.entries.text.append(row.Caption().View()) += ';';
    table.descriptions.text.append(row.SubItem(1).View()) += ';';
    table.states.text += row.Checked() ? "1;" : "0;";
  }
  for (const Strand* strand : {&table.entries, &table.descriptions, &table.states}) {
    strand->text = WithoutLastSeparator(strand->text);
    Write(*strand);
  }
}

}  // namespace

void LoadFileTypes(frmMain& window) { Load(FileTypesOf(window)); }
void LoadExcludeFolders(frmMain& window) { Load(ExcludeFoldersOf(window)); }
void SaveFileTypes(frmMain& window) { Save(FileTypesOf(window)); }
void SaveExcludeFolders(frmMain& window) { Save(ExcludeFoldersOf(window)); }

}  // namespace tidemark

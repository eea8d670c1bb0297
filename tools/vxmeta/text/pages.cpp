// SPDX-License-Identifier: Apache-2.0
#include "text/pages.h"

#include <fmt/format.h>

#include <algorithm>

#include "model/sections.h"
#include "model/unread.h"
#include "text/cells.h"

namespace vxmeta {
namespace {

constexpr std::size_t kLabel = 17;  // cells of a section's name in the summary

bool isDefault(const View& record, const Field& field) {
  return isSame(record.field(field), View::defaultOf(*record.type, field));
}

// "name" and value of each field that says something, a dot between them.
void addFields(Line& line, const View& record) {
  bool isFirst = true;
  for (const Field& field : record.type->fields) {
    const bool isUnit = field.name == "units";
    if (!field.isStored || isUnit || isFlag(*record.type, field)) continue;
    const std::string value = isDefault(record, field) ? "" : shownWithUnit(record, field);
    if (value.empty()) continue;
    line.add(Style::dim, fmt::format("{}{} ", isFirst ? "" : " · ", field.name));
    line.add(Style::plain, value);
    isFirst = false;
  }
  if (isFirst) line.add(Style::dim, "empty");
}

bool isList(const View& value) { return value.is(Kind::list); }

// The record that names one of the type: itself, or the first in it that has a name.
const Field* namedPart(const Type& record) {
  const auto isNamed = [](const Field& field) {
    return field.type->kind == Kind::record && field.type->key() != nullptr;
  };
  const auto part = std::find_if(record.fields.begin(), record.fields.end(), isNamed);
  return part == record.fields.end() ? nullptr : &*part;
}

bool hasName(const Type& record) { return record.key() != nullptr || namedPart(record) != nullptr; }

std::string nameOf(const View& record) {
  if (const Field* key = record.type->key()) return shownField(record, *key);
  return nameOf(record.field(*namedPart(*record.type)));
}

// The items' names, one after the other, "×3" behind one that comes three times in a row.
std::string namesIn(const View& list) {
  constexpr std::size_t kMost = 24;
  std::string names;
  std::size_t shown = 0;
  for (std::size_t i = 0; i < list.size();) {
    const std::string name = nameOf(list.item(i));
    const std::size_t first = i;
    while (i < list.size() && nameOf(list.item(i)) == name) ++i;
    if (++shown > kMost) return names + fmt::format(", {} more", list.size() - first);
    names += (first == 0 ? "" : ", ") + (name.empty() ? "(no name)" : name);
    if (i - first > 1) names += fmt::format(" ×{}", i - first);
  }
  return names;
}

std::string countsIn(const View& groups) {
  std::string counts;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    counts += (i == 0 ? "" : " + ") + std::to_string(groups.item(i).size());
  }
  return fmt::format("in {} group{}: {}", groups.size(), groups.size() == 1 ? "" : "s", counts);
}

void addList(Line& line, const View& list) {
  const Type& item = *list.type->item;
  if (list.size() == 0) return (void)line.add(Style::dim, "empty");
  if (item.kind == Kind::list) return (void)line.add(Style::plain, countsIn(list));
  line.add(Style::dim, fmt::format("{}  ", list.size()));
  if (hasName(item)) return (void)line.add(Style::plain, namesIn(list));
  for (std::size_t i = 0; i < list.size() && i < 4; ++i) {
    if (i > 0) line.add(Style::dim, " / ");
    addFields(line, list.item(i));
  }
  if (list.size() > 4) line.add(Style::dim, " / ...");
}

Line labelled(const Screen& screen, std::string_view label) {
  Line line(screen);
  line.add(Style::bold, label);
  const std::size_t blanks = label.size() < kLabel ? kLabel - label.size() : 1;
  line.add(Style::plain, std::string(blanks, ' '));
  return line;
}

std::string summaryLine(std::string_view path, const View& value, const Screen& screen) {
  Line line = labelled(screen, path);
  isList(value) ? addList(line, value) : addFields(line, value);
  return line.end();
}

bool isInkList(const View& value) { return isList(value) && hasColour(*value.type->item); }

std::string summaryOf(std::string_view path, const View& value, const Screen& screen);

// A section of sections: film.
std::string partsOf(std::string_view path, const View& group, const Screen& screen) {
  std::string text;
  for (const Field& field : group.type->fields) {
    const View part = group.field(field).present();
    if (part.type == nullptr) continue;
    text += summaryOf(fmt::format("{}.{}", path, field.name), part, screen);
  }
  return text;
}

std::string summaryOf(std::string_view path, const View& value, const Screen& screen) {
  if (value.type == &typeOf<Film>()) return partsOf(path, value, screen);
  if (!isInkList(value) || value.size() == 0) return summaryLine(path, value, screen);
  Line heading = labelled(screen, path);
  heading.add(Style::dim, std::to_string(value.size()));
  return heading.end() + formatTable(tableOf(value, true), screen, 2);
}

std::string headOf(const Document& document, const Screen& screen) {
  const PacketInfo& packet = document.packet;
  Line name(screen);
  name.add(Style::bold, document.file == "-" ? "standard input" : visible(document.file));
  Line about(screen);
  about.add(Style::dim, fmt::format("{}, {}, {} bytes, {} of padding, {}", visible(packet.source),
                                    packet.encoding, packet.bytes, packet.padding,
                                    packet.writable ? "writable" : "read-only"));
  return name.end() + about.end() + "\n";
}

std::string foreignLine(const Document& document, const Screen& screen) {
  if (document.foreign.empty()) return "";
  Line line = labelled(screen, "other schemas");
  bool isFirst = true;
  for (const ForeignSchema& schema : document.foreign) {
    line.add(Style::dim, fmt::format("{}{} ", isFirst ? "" : " · ", visible(schema.prefix)));
    line.add(Style::plain,
             fmt::format("{} propert{}", schema.properties, schema.properties == 1 ? "y" : "ies"));
    isFirst = false;
  }
  return line.end();
}

// A reason that is a name ("vxFont:type") says what is missing; any other is a sentence.
std::string reasonOf(const UnreadPart& part, std::string_view lack) {
  const std::string reason = part.reason.value_or("");
  return namesField(reason) ? fmt::format("{} {}", lack, reason) : reason;
}

std::string sentenceOf(const UnreadPart& part) {
  const std::string list = wordsForList(part.property, part.list);
  const std::string item = part.item ? fmt::format("[{}]", *part.item) : "";
  if (part.field) {
    return fmt::format("{}{} holds {}, which no record has", list, item, *part.field);
  }
  if (part.item || part.stored == 0) {
    return fmt::format("{}{} cannot be read: {}", list, item, reasonOf(part, "it lacks"));
  }
  return fmt::format("{}: {} of {} read, {}", list, part.read.value_or(0), part.stored.value_or(0),
                     reasonOf(part, "the next lacks"));
}

// Parts of one record, or properties of none, that are not read for one reason.
bool isInOneSentence(const UnreadPart& a, const UnreadPart& b) {
  const bool isOne = a.list == b.list || (a.list == a.property && b.list == b.property);
  return isOne && a.reason == b.reason && !isOfList(b);
}

std::string sentenceOf(const UnreadPart& first, const std::string& names) {
  if (first.list == first.property) return names + " not read: " + reasonOf(first, "it lacks");
  return fmt::format("{} holds {}, not read: {}", first.list, names, reasonOf(first, "it lacks"));
}

std::vector<std::string> sentencesOf(const std::vector<UnreadPart>& parts) {
  std::vector<std::string> sentences;
  for (std::size_t i = 0; i < parts.size();) {
    const UnreadPart& first = parts[i++];
    if (isOfList(first)) {
      sentences.push_back(sentenceOf(first));
      continue;
    }
    std::string names = storedPath(first);
    for (; i < parts.size() && isInOneSentence(first, parts[i]); ++i) {
      names += ", " + storedPath(parts[i]);
    }
    sentences.push_back(sentenceOf(first, names));
  }
  return sentences;
}

std::string unreadLines(const Document& document, const Screen& screen) {
  constexpr std::size_t kMost = 8;
  const std::vector<std::string> sentences = sentencesOf(document.unread);
  std::string text;
  for (std::size_t i = 0; i < sentences.size() && i < kMost; ++i) {
    Line line = labelled(screen, i == 0 ? "unread" : "");
    text += line.add(Style::warning, visible(sentences[i])).end();
  }
  if (sentences.size() <= kMost) return text;
  Line line = labelled(screen, "");
  line.add(Style::warning, fmt::format("and {} more: show -s unread", sentences.size() - kMost));
  return text + line.end();
}

std::string recordInFull(std::string_view path, const View& record, const Screen& screen);

std::string headingLine(std::string_view path, const Screen& screen, std::string_view note = "") {
  Line line(screen);
  return line.add(Style::bold, path).add(Style::plain, "  ").add(Style::dim, note).end();
}

bool isNested(const Type& type) {
  if (type.kind == Kind::record) return true;
  const bool isContainer = type.kind == Kind::list || type.kind == Kind::optional;
  return isContainer && isNested(*type.item);
}

bool hasNestedFields(const Type& record) {
  return record.kind == Kind::record &&
         std::any_of(record.fields.begin(), record.fields.end(),
                     [](const Field& field) { return isNested(*field.type); });
}

std::string itemsInFull(std::string_view path, const View& list, const Screen& screen) {
  std::string text;
  for (std::size_t i = 0; i < list.size(); ++i) {
    text += sectionInFull(fmt::format("{}[{}]", path, i), list.item(i), screen);
  }
  return text;
}

std::string listInFull(std::string_view path, const View& list, const Screen& screen) {
  const Type& item = *list.type->item;
  if (list.size() == 0) return headingLine(path, screen, "empty") + "\n";
  if (item.kind == Kind::list || hasNestedFields(item)) return itemsInFull(path, list, screen);
  const std::string heading = headingLine(path, screen, std::to_string(list.size()));
  if (item.kind == Kind::record) return heading + formatTable(tableOf(list), screen, 2) + "\n";
  return heading + "  " + shownValue(list) + "\n\n";
}

std::string recordInFull(std::string_view path, const View& record, const Screen& screen) {
  Table table{{{"", false}, {"", false}}, {}};
  std::string nested;
  for (const Field& field : record.type->fields) {
    const View value = record.field(field).present();
    if (value.type == nullptr || !field.isStored) continue;
    if (isNested(*value.type)) {
      nested += sectionInFull(fmt::format("{}.{}", path, field.name), value, screen);
    } else if (const std::string text = shownWithUnit(record, field); !text.empty()) {
      table.rows.push_back({{std::string(field.name), {}}, {text, {}}});
    }
  }
  if (table.rows.empty() && !nested.empty()) return nested;
  const std::string heading = headingLine(path, screen, table.rows.empty() ? "empty" : "");
  return heading + formatTable(table, screen, 2) + "\n" + nested;
}

}  // namespace

std::string sectionInFull(std::string_view path, const View& value, const Screen& screen) {
  if (isList(value)) return listInFull(path, value, screen);
  if (value.is(Kind::record)) return recordInFull(path, value, screen);
  return headingLine(path, screen) + "  " + shownValue(value) + "\n\n";
}

std::string summaryOf(const Document& document, const Screen& screen) {
  std::string text = headOf(document, screen);
  for (const Field& field : typeOf<Document>().fields) {
    const View value = viewOf(document).field(field).present();
    if (isAboutTheFile(field) || value.type == nullptr) continue;
    text += summaryOf(field.name, value, screen);
  }
  return text + foreignLine(document, screen) + unreadLines(document, screen);
}

std::string documentInFull(const Document& document, const Screen& screen) {
  std::string text = headOf(document, screen);
  for (const Field& field : typeOf<Document>().fields) {
    const View value = viewOf(document).field(field).present();
    const bool isAbsent =
        value.type == nullptr || (isList(value) && value.size() == 0 && isAboutTheFile(field));
    const bool isHead = field.name == "vxmeta" || field.name == "file" || field.name == "packet";
    if (!isAbsent && !isHead) text += sectionInFull(field.name, value, screen);
  }
  return text;
}

}  // namespace vxmeta

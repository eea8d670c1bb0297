// SPDX-License-Identifier: Apache-2.0
#include "model/known_paths.h"

#include "model/path.h"

namespace vxmeta {
namespace {

void addPaths(const Type& type, const std::string& path, std::vector<KnownPath>& paths) {
  if (type.item != nullptr) {
    return addPaths(*type.item, path + (type.kind == Kind::list ? "[]" : ""), paths);
  }
  for (const Field& field : type.fields) {
    if (!field.isStored) continue;
    const std::string below = (path.empty() ? "" : path + ".") + std::string(field.name);
    paths.push_back({below, field.help});
    addPaths(*field.type, below, paths);
  }
}

// Adds `step`, where it goes on as begun.
void addStep(const std::string& before, std::string_view begun, const std::string& step,
             std::string_view help, std::vector<KnownPath>& paths) {
  if (step.compare(0, begun.size(), begun) == 0) paths.push_back({before + step, help});
}

void addFields(const Type& record, const std::string& before, std::string_view begun,
               std::vector<KnownPath>& paths) {
  for (const Field& field : record.fields) {
    if (field.isStored) addStep(before, begun, std::string(field.name), field.help, paths);
  }
}

void addItems(const Type& list, const std::string& before, std::string_view begun,
              std::vector<KnownPath>& paths) {
  addStep(before, begun, "[0]", "the first item", paths);
  addStep(before, begun, "[-1]", "the last item", paths);
  const Field* key = list.item->key();
  if (key != nullptr) addStep(before, begun, "[" + std::string(key->name) + "=", key->help, paths);
}

// Behind a whole path.
void addNext(const Type& type, const std::string& path, std::vector<KnownPath>& paths) {
  if (type.kind == Kind::list) return addItems(type, path, "", paths);
  addFields(type, path + ".", "", paths);
}

// Where the last step begins: at its first character, or at its bracket.
std::size_t lastStepIn(std::string_view path) {
  std::size_t begin = 0;
  for (std::size_t i = 0; i < path.size(); ++i) {
    if (path[i] == '.') begin = i + 1;
    if (path[i] == '[') begin = i, i = std::min(path.find(']', i), path.size());
  }
  return begin;
}

const Type* typeAt(std::string_view path, const Type& root) {
  try {
    return path.empty() ? &root : &typeOfPath(path, root);
  } catch (const PathError&) {
    return nullptr;
  }
}

}  // namespace

std::vector<KnownPath> knownPaths(const Type& root) {
  std::vector<KnownPath> paths;
  addPaths(root, "", paths);
  return paths;
}

std::vector<KnownPath> completions(std::string_view begun, const Type& root) {
  std::vector<KnownPath> paths;
  const std::size_t last = lastStepIn(begun);
  const std::string before(begun.substr(0, last));
  const bool isItem = last < begun.size() && begun[last] == '[';
  const bool isField = !isItem && !before.empty();
  const Type* type = typeAt(isField ? before.substr(0, last - 1) : before, root);
  if (type == nullptr) return paths;
  if (isItem && type->kind == Kind::list) addItems(*type, before, begun.substr(last), paths);
  if (!isItem) addFields(*type, before, begun.substr(last), paths);
  const Type* whole = begun.empty() ? nullptr : typeAt(begun, root);
  if (whole != nullptr) addNext(*whole, std::string(begun), paths);
  return paths;
}

}  // namespace vxmeta

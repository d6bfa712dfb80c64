// The vaults as the text of store.json, and back. Texts are UTF-8 there.

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "core/Text.h"
#include "store/Records.h"

namespace nlohmann {

template <>
struct adl_serializer<std::wstring> {
  static void to_json(json& object, const std::wstring& text) { object = wb::toUtf8(text); }
  static void from_json(const json& object, std::wstring& text) {
    text = wb::fromUtf8(object.get<std::string>());
  }
};

/// A map by names is an object.
template <class Value>
struct adl_serializer<wb::NameMap<Value>> {
  static void to_json(json& object, const wb::NameMap<Value>& map) {
    object = json::object();
    for (const auto& [name, value] : map) object[wb::toUtf8(name)] = value;
  }
  static void from_json(const json& object, wb::NameMap<Value>& map) {
    for (const auto& [name, value] : object.items()) value.get_to(map[wb::fromUtf8(name)]);
  }
};

}  // namespace nlohmann

namespace wb {

namespace {

constexpr int formatNumber = 1;

}  // namespace

using nlohmann::json;

NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(StoredVersion, number, user, comment, date, archive)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(Holder, user, computer, folder, folderId)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(CardValue, type, text)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(CardMapping, block, tag)
NLOHMANN_DEFINE_TYPE_NON_INTRUSIVE(CardVariable, name, values, mappings)

void to_json(json& object, const StoredFile& file) {
  object = {{"id", file.id},
            {"path", file.path},
            {"versions", file.versions},
            {"state", file.state},
            {"exempt", file.exempt},
            {"denied", file.denied},
            {"local", file.localVersions},
            {"card", file.card}};
  if (file.holder) object["holder"] = *file.holder;
}

void from_json(const json& object, StoredFile& file) {
  object.at("id").get_to(file.id);
  object.at("path").get_to(file.path);
  object.at("versions").get_to(file.versions);
  if (file.versions.empty()) throw std::runtime_error("a file has no versions");
  if (object.contains("holder")) file.holder = object["holder"].get<Holder>();
  object.at("state").get_to(file.state);
  object.at("exempt").get_to(file.exempt);
  object.at("denied").get_to(file.denied);
  object.at("local").get_to(file.localVersions);
  object.at("card").get_to(file.card);
}

void to_json(json& object, const StoredVault& vault) {
  object = {{"name", vault.name},
            {"root", vault.root},
            {"viewId", vault.viewId},
            {"folders", vault.folderIds},
            {"files", json::array()}};
  for (const auto& [path, file] : vault.files) object["files"].push_back(file);
}

void from_json(const json& object, StoredVault& vault) {
  object.at("name").get_to(vault.name);
  object.at("root").get_to(vault.root);
  object.at("viewId").get_to(vault.viewId);
  object.at("folders").get_to(vault.folderIds);
  for (const json& each : object.at("files")) {
    auto file = each.get<StoredFile>();
    if (vault.files.count(file.path) != 0) {
      throw std::runtime_error(toUtf8(file.path) + " is in a vault twice");
    }
    vault.files.emplace(file.path, std::move(file));
  }
}

std::string vaultsToJson(const std::vector<StoredVault>& vaults) {
  return json{{"format", formatNumber}, {"vaults", vaults}}.dump(1);
}

std::vector<StoredVault> vaultsFromJson(const std::string& text) {
  const json object = json::parse(text);
  if (object.at("format") != formatNumber) throw std::runtime_error("another format");
  return object.at("vaults");
}

}  // namespace wb

#include "store/Json.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "core/Text.h"

namespace wb {

namespace {

using nlohmann::json;

constexpr int formatNumber = 1;

std::wstring text(const json& object, const char* key) {
  return fromUtf8(object.at(key).get<std::string>());
}

json toJson(const StoredVersion& version) {
  return {{"number", version.number},
          {"user", toUtf8(version.user)},
          {"comment", toUtf8(version.comment)},
          {"date", version.date},
          {"archive", toUtf8(version.archive)}};
}

StoredVersion versionFrom(const json& object) {
  return {object.at("number"), text(object, "user"), text(object, "comment"), object.at("date"),
          text(object, "archive")};
}

json toJson(const Holder& holder) {
  return {{"user", toUtf8(holder.user)},
          {"computer", toUtf8(holder.computer)},
          {"folder", toUtf8(holder.folder)},
          {"folderId", holder.folderId}};
}

Holder holderFrom(const json& object) {
  return {text(object, "user"), text(object, "computer"), text(object, "folder"),
          object.at("folderId")};
}

json toJson(const CardVariable& variable) {
  json values = json::object(), mappings = json::array();
  for (const auto& [configuration, value] : variable.values) {
    values[toUtf8(configuration)] = {{"type", toUtf8(value.type)}, {"text", toUtf8(value.text)}};
  }
  for (const CardMapping& mapping : variable.mappings) {
    mappings.push_back({{"block", toUtf8(mapping.block)}, {"tag", toUtf8(mapping.tag)}});
  }
  return {{"name", toUtf8(variable.name)}, {"values", values}, {"mappings", mappings}};
}

CardVariable variableFrom(const json& object) {
  CardVariable variable;
  variable.name = text(object, "name");
  for (const auto& [configuration, value] : object.at("values").items()) {
    variable.values[fromUtf8(configuration)] = {text(value, "type"), text(value, "text")};
  }
  for (const json& mapping : object.at("mappings")) {
    variable.mappings.push_back({text(mapping, "block"), text(mapping, "tag")});
  }
  return variable;
}

json toJson(const StoredFile& file) {
  json object = {{"id", file.id},
                 {"path", toUtf8(file.path)},
                 {"versions", json::array()},
                 {"state", toUtf8(file.state)},
                 {"exempt", file.exempt},
                 {"denied", file.denied},
                 {"local", json::array()},
                 {"card", json::array()}};
  for (const StoredVersion& version : file.versions) object["versions"].push_back(toJson(version));
  if (file.holder) object["holder"] = toJson(*file.holder);
  for (const auto& [folder, version] : file.localVersions) {
    object["local"].push_back({folder, version});
  }
  for (const CardVariable& variable : file.card) object["card"].push_back(toJson(variable));
  return object;
}

StoredFile fileFrom(const json& object) {
  StoredFile file;
  file.id = object.at("id");
  file.path = text(object, "path");
  for (const json& version : object.at("versions")) file.versions.push_back(versionFrom(version));
  if (file.versions.empty()) throw std::runtime_error("a file has no versions");
  if (object.contains("holder")) file.holder = holderFrom(object.at("holder"));
  file.state = text(object, "state");
  file.exempt = object.at("exempt");
  file.denied = object.at("denied");
  for (const json& local : object.at("local")) file.localVersions[local.at(0)] = local.at(1);
  for (const json& variable : object.at("card")) file.card.push_back(variableFrom(variable));
  return file;
}

json toJson(const StoredVault& vault) {
  json object = {{"name", toUtf8(vault.name)},
                 {"root", toUtf8(vault.root)},
                 {"viewId", toUtf8(vault.viewId)},
                 {"folders", json::object()},
                 {"files", json::array()}};
  for (const auto& [folder, id] : vault.folderIds) object["folders"][toUtf8(folder)] = id;
  for (const auto& [path, file] : vault.files) object["files"].push_back(toJson(file));
  return object;
}

StoredVault vaultFrom(const json& object) {
  StoredVault vault;
  vault.name = text(object, "name");
  vault.root = text(object, "root");
  vault.viewId = text(object, "viewId");
  for (const auto& [folder, id] : object.at("folders").items()) {
    vault.folderIds[fromUtf8(folder)] = id;
  }
  for (const json& each : object.at("files")) {
    StoredFile file = fileFrom(each);
    const std::wstring path = file.path;
    if (!vault.files.emplace(path, std::move(file)).second) {
      throw std::runtime_error(toUtf8(path) + " stands twice in a vault");
    }
  }
  return vault;
}

}  // namespace

std::string vaultsToJson(const std::vector<StoredVault>& vaults) {
  json list = json::array();
  for (const StoredVault& vault : vaults) list.push_back(toJson(vault));
  return json{{"format", formatNumber}, {"vaults", list}}.dump(1);
}

std::vector<StoredVault> vaultsFromJson(const std::string& text) {
  const json object = json::parse(text);
  if (object.at("format") != formatNumber) throw std::runtime_error("another format");
  std::vector<StoredVault> vaults;
  for (const json& vault : object.at("vaults")) vaults.push_back(vaultFrom(vault));
  return vaults;
}

}  // namespace wb

#include "client/CardData.h"

#include <vector>

#include "client/Bstr.h"
#include "client/CardVariable.h"
#include "client/ClientCall.h"
#include "client/Results.h"

namespace wb {
namespace {

class CardDataPart : public Dual<VaultCardData> {
 public:
  explicit CardDataPart(const FileState& state) : state(state) {}

  STDMETHODIMP cardVariables(LONG folderId, LONG* count, VaultCardVariable*** variables) override {
    return ClientCall(L"VaultCardData.cardVariables")
        .with(L"folder", folderId)
        .out(count, L"count")
        .out(variables, L"variables")
        .runVoid([&] {
          const StoredFile& file = state.file();
          if (folderId != state.folderId()) throw ClientFailure(E_QVT_FOLDER_NOT_FOUND);
          std::vector<Owned<VaultCardVariable>> made;
          for (const CardVariable& variable : file.card) {
            made.push_back(cardVariableObject(variable));
          }
          *variables = arrayOf(made);
          *count = static_cast<LONG>(made.size());
        });
  }

 private:
  /// Moves the references into an array that is the caller's.
  static VaultCardVariable** arrayOf(std::vector<Owned<VaultCardVariable>>& made) {
    const auto array = static_cast<VaultCardVariable**>(
        CoTaskMemAlloc(sizeof(VaultCardVariable*) * (made.empty() ? 1 : made.size())));
    if (!array) throw std::bad_alloc();
    for (size_t i = 0; i < made.size(); ++i) array[i] = made[i].release();
    return array;
  }

  FileState state;
};

}  // namespace

Owned<VaultCardData> cardDataObject(const FileState& file) {
  return make<ComObject<CardDataPart>, VaultCardData>(namedLabel(L"VaultCardData", file.name),
                                                      file);
}

}  // namespace wb

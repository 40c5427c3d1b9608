#pragma once

#include "controls/ComboBox.h"
#include "controls/FieldLayout.h"
#include "controls/TextBox.h"
#include "core/Ids.h"

#include <QStringList>

#include <cstdint>

namespace quorvane::app {
struct Session;
}

namespace quorvane::paper {

/// Whose paper is read: the client, the demat account, and the password that opens the document.
/// The windows add their own fields to it, in two columns.
class PaperFields : public controls::FieldLayout {
  Q_OBJECT

 public:
  enum class Account : std::uint8_t {
    kAlways,  ///< a client's only one is chosen by itself
    kInDoubt  ///< the papers name theirs
  };

  explicit PaperFields(Account account);

  /// The password's box, after the fields that the window has added.
  void AddPassword();

  /// Offers the clients and chooses the current one.
  void Offer(const app::Session& session);

  /// Whether the choice is another client's than before; then that one's accounts are offered.
  bool IsAnotherClient(const app::Session& session);

  ClientId Client() const { return ClientId{Combo1->CurrentId()}; }
  AccountId ChosenAccount() const { return AccountId{Combo2->CurrentId()}; }
  QStringList Passwords() const { return {TxtPassword->text()}; }

  controls::ComboBox* Combo1 = nullptr;  ///< client
  controls::ComboBox* Combo2 = nullptr;  ///< account
  controls::TextBox* TxtPassword = nullptr;

 private:
  void OfferAccounts(const app::Session& session);

  Account account_;
  ClientId client_;  ///< whose accounts are offered
};

}  // namespace quorvane::paper

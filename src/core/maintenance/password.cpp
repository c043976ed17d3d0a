#include "maintenance/password.h"

#include "common/text.h"

#include <sodium.h>
#include <stdexcept>

namespace tallymere::maintenance {

namespace {

void initSodium() {
    static const bool ready = sodium_init() >= 0;
    if (!ready) throw std::runtime_error("The password library could not be started.");
}

// The text as passwords are compared.
std::string comparable(std::string_view text) { return common::toUpper(common::trimView(text)); }

}  // namespace

std::string hashPassword(std::string_view text) {
    initSodium();
    const std::string plain = comparable(text);
    char out[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(out, plain.data(), plain.size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw std::runtime_error("Not enough memory to protect the password.");
    return out;
}

bool isPasswordHash(std::string_view stored) { return common::trimView(stored).starts_with(crypto_pwhash_STRPREFIX); }

bool passwordMatches(std::string_view stored, std::string_view typed) {
    const std::string_view kept = common::trimView(stored);
    if (!isPasswordHash(kept)) return comparable(kept) == comparable(typed);
    initSodium();
    // The verifier needs a terminated string of bounded length.
    if (kept.size() >= crypto_pwhash_STRBYTES) return false;
    const std::string hash(kept);
    const std::string plain = comparable(typed);
    return crypto_pwhash_str_verify(hash.c_str(), plain.data(), plain.size()) == 0;
}

bool passwordNeedsRehash(std::string_view stored) {
    const std::string_view kept = common::trimView(stored);
    if (kept.empty()) return false;
    if (!isPasswordHash(kept)) return true;
    if (kept.size() >= crypto_pwhash_STRBYTES) return true;
    initSodium();
    const std::string hash(kept);
    return crypto_pwhash_str_needs_rehash(hash.c_str(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0;
}

}  // namespace tallymere::maintenance

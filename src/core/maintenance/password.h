#pragma once
// How the owner and user passwords are kept: as salted, slow hashes (Argon2id) of the text as it is
// compared, trimmed and upper-cased, so that case and outer blanks never count. A database written
// before passwords were hashed holds them in clear text; such a value still matches by the plain
// comparison, and the caller then stores its hash in its place.

#include <string>
#include <string_view>

namespace tallymere::maintenance {

// The stored form of a password. Throws std::runtime_error when the hash cannot be computed (the
// machine is out of memory).
std::string hashPassword(std::string_view text);

// True when `stored` is a hash made by hashPassword, as opposed to an older clear-text value.
bool isPasswordHash(std::string_view stored);

// True when `typed` is the password kept as `stored`, hashed or in clear text.
bool passwordMatches(std::string_view stored, std::string_view typed);

// True when a stored value that has just matched should be replaced by a fresh hash: clear text,
// or a hash made with weaker settings than hashPassword's. An empty value means "no password" and
// is never replaced.
bool passwordNeedsRehash(std::string_view stored);

}  // namespace tallymere::maintenance

// Users and passwords of the simulated host, kept in host.json; every copy of a password is wiped.
#include "simhost/pam/UserDatabase.h"

#include "simhost/model/Store.h"

#include <cctype>
#include <cstring>

namespace SimHostPam {
namespace {

constexpr size_t kMinimumLength = 7;
constexpr int kMinimumClasses = 3;
constexpr const char* kRuleText =
    "The password must be at least 7 characters long and use at least 3 of these "
    "kinds of characters: lower-case letters, upper-case letters, digits, others.";

void Wipe(std::string& text) {
    explicit_bzero(text.data(), text.size());
    text.clear();
}

// Owns a loaded state and wipes every stored password when it goes away.
class State {
public:
    explicit State(SimHost::Json json) : json_(std::move(json)) {}
    ~State() { SimHost::WipePasswords(json_); }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    const SimHost::Json* FindUser(const char* name) const {
        auto users = json_.find("users");
        if (users == json_.end() || !users->is_array())
            return nullptr;
        for (const auto& user : *users)
            if (user.is_object() && user.value("name", std::string()) == name)
                return &user;
        return nullptr;
    }

private:
    SimHost::Json json_;
};

bool StoredPasswordEquals(const SimHost::Json& user, const char* password) {
    auto stored = user.find("password");
    if (stored == user.end() || !stored->is_string())
        return false;
    const std::string& text = stored->get_ref<const std::string&>();
    return text.size() == std::strlen(password) && std::memcmp(text.data(), password, text.size()) == 0;
}

} // namespace

UserStatus LookUpUser(const std::string& dir, const char* user) {
    State state(SimHost::Load(dir));
    const SimHost::Json* entry = state.FindUser(user);
    if (entry == nullptr)
        return {};
    return {true, entry->value("permitted", false), entry->value("expired", false)};
}

bool PasswordMatches(const std::string& dir, const char* user, const char* password) {
    State state(SimHost::Load(dir));
    const SimHost::Json* entry = state.FindUser(user);
    return entry != nullptr && password != nullptr && StoredPasswordEquals(*entry, password);
}

bool SetPassword(const std::string& dir, const char* user, const char* password) {
    bool found = false;
    State stored(SimHost::Transact(dir, [&](SimHost::Json& json) {
        auto users = json.find("users");
        if (users == json.end() || !users->is_array())
            return;
        for (auto& entry : *users) {
            if (!entry.is_object() || entry.value("name", std::string()) != user)
                continue;
            if (entry.contains("password") && entry["password"].is_string())
                Wipe(entry["password"].get_ref<std::string&>());
            entry["password"] = password;
            entry["expired"] = false;
            found = true;
        }
    }));
    return found;
}

const char* PasswordRuleViolation(const char* password) {
    if (password == nullptr || std::strlen(password) < kMinimumLength)
        return kRuleText;
    bool lower = false, upper = false, digit = false, other = false;
    for (const char* p = password; *p != '\0'; ++p) {
        auto c = static_cast<unsigned char>(*p);
        if (std::islower(c))
            lower = true;
        else if (std::isupper(c))
            upper = true;
        else if (std::isdigit(c))
            digit = true;
        else
            other = true;
    }
    int classes = int(lower) + int(upper) + int(digit) + int(other);
    return classes >= kMinimumClasses ? nullptr : kRuleText;
}

} // namespace SimHostPam

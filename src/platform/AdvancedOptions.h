// Advanced options (host settings by path, e.g. /UserVars/TarnTimeOut) and user advanced options.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace HostCtl::Adv {

class AdvancedOption {
public:
    virtual ~AdvancedOption() = default;
    const std::string& GetPath() const { return path_; }

protected:
    explicit AdvancedOption(std::string path) : path_(std::move(path)) {}
    std::string path_;
};

class AdvancedIntegerOption : public AdvancedOption {
public:
    AdvancedIntegerOption(std::string path, int64_t value) : AdvancedOption(std::move(path)), value_(value) {}
    int64_t GetValue() const { return value_; }

private:
    int64_t value_;
};

class AdvancedStringOption : public AdvancedOption {
public:
    AdvancedStringOption(std::string path, std::string value)
        : AdvancedOption(std::move(path)), value_(std::move(value)) {}
    const std::string& GetValue() const { return value_; }

private:
    std::string value_;
};

class AdvancedBooleanOption : public AdvancedOption {
public:
    AdvancedBooleanOption(std::string path, bool value) : AdvancedOption(std::move(path)), value_(value) {}
    bool GetValue() const { return value_; }

private:
    bool value_;
};

} // namespace HostCtl::Adv

namespace TesCtl::Adv {

// All operations throw HostCtl::Lib::HostCtlException on a backend failure.
class AdvancedOptionImpl {
public:
    // Null when no option has that path.
    std::unique_ptr<HostCtl::Adv::AdvancedOption> FindOption(const std::string& path);
    // Throws when the option does not exist or is not an integer option.
    void SetIntegerOption(const std::string& path, int64_t value);
};

class UserAdvancedOptionImpl {
public:
    bool HasUserOption(const std::string& name);
};

} // namespace TesCtl::Adv

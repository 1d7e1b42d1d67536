/// @file
/// The base of the exceptions that the library itself throws.
#pragma once

#include <exception>
#include <string>
#include <utility>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Common
{

/// What the library throws. Catch it, or std::exception, to catch them all.
class OSTREL_COMMON_API CommonException : public std::exception
{
public:
    /// An exception with the text that what() gives.
    explicit CommonException(std::string message) : m_message(std::move(message)) {}

    /// The message given at construction.
    [[nodiscard]] char const* what() const noexcept override { return m_message.c_str(); }

private:
    std::string m_message;
};

} // namespace Ostrel::Common

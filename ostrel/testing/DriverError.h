/// @file
/// What a driver throws when it cannot do what it was asked to.
#pragma once

#include <stdexcept>

#include <ostrel/platform/base/Export.h>

namespace Ostrel::Testing
{

/// There is no such row, column or window, it is not on the screen, or a wait was in vain. The message names what was
/// asked for and what was there. Test frameworks report it as the failure of the test.
class OSTREL_TESTING_API DriverError : public std::runtime_error
{
public:
    /// With the message.
    using std::runtime_error::runtime_error;
    ///@{
    /// Copies the message.
    DriverError(DriverError const&) = default;
    DriverError& operator=(DriverError const&) = default;
    ///@}
    ~DriverError() override;
};

} // namespace Ostrel::Testing

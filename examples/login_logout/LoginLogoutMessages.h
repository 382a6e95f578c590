#ifndef LOGIN_LOGOUT_LOGINLOGOUTMESSAGES_H
#define LOGIN_LOGOUT_LOGINLOGOUTMESSAGES_H

/// The messages of the Login_Logout component, for the hosts that log them. A message identifier
/// is the component's identifier, a severity in bits 14 and 15, and one of the numbers below.
namespace login_logout {

constexpr unsigned int kComponentId = 0x07000000;
/// The sub-component that checks who logs in; trace lines are offered to it.
constexpr unsigned int kAuthenticationId = 0x07010000;

/// Arguments: user, address, port.
constexpr unsigned int kFailedPassword = 1;
/// Arguments: user, address, port.
constexpr unsigned int kAcceptedPassword = 2;
/// Arguments: host name, address.
constexpr unsigned int kNameDoesNotMapBack = 3;

}  // namespace login_logout

#endif

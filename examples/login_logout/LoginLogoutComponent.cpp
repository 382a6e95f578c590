#include <iterator>

#include <login_logout/LoginLogoutMessages.h>
#include <zoerrlog/logger/ZoErrLogComponent.h>

namespace {

constexpr unsigned int kMessageNumberMask = 0x3FFF;

// Not constant, because the interface hands out a pointer to records that are not.
ZoSubComponentInfo g_subComponents[] = {
    {"Authentication", "Authentication", "Checks who logs in."},
    {"Send_Response", "Send_Response", "Sends the answers to login requests."},
    {"Receive_Request", "Receive_Request", "Receives login requests."},
};

class LoginLogoutComponent final : public CZoErrLogComponent {
public:
    LoginLogoutComponent()
        : CZoErrLogComponent(login_logout::kComponentId, "Login_Logout", "Login_Logout",
                             "Logins and logouts of users.") {}

    ZoSubComponentInfo* GetSubComponents(int* count, ZoSubComponentInfo** array) override {
        *count = static_cast<int>(std::size(g_subComponents));
        *array = g_subComponents;
        return g_subComponents;
    }

    const char* GetMessage(unsigned int id) override {
        switch (id & kMessageNumberMask) {
            case login_logout::kFailedPassword:
                return "zo-login-00001";
            case login_logout::kAcceptedPassword:
                return "zo-login-00002";
            case login_logout::kNameDoesNotMapBack:
                return "zo-login-00003";
            default:
                return nullptr;
        }
    }
};

}  // namespace

CZoErrLogComponent* GetComponentPtr() {
    static LoginLogoutComponent component;
    return &component;
}

#include "ui/closed_network.hpp"

#include <QByteArray>
#include <QNetworkProxy>

namespace quorrel {

void CloseNetwork() {
    constexpr const char* kFlags = "QTWEBENGINE_CHROMIUM_FLAGS";
    // Calls may go through a proxy only, and the proxy is a port on which nobody listens. The name
    // of a host could carry a message too.
    qputenv(kFlags, qgetenv(kFlags) +
                        " --force-webrtc-ip-handling-policy=disable_non_proxied_udp"
                        " --host-resolver-rules=\"MAP * ~NOTFOUND\"");
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::HttpProxy, "127.0.0.1", 9));
}

}  // namespace quorrel

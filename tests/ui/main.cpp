#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>

#include "ui/appearance.hpp"
#include "ui/closed_network.hpp"
#include "ui/guarded_application.hpp"
#include "ui/topic_scheme.hpp"

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (geteuid() == 0) qputenv("QTWEBENGINE_DISABLE_SANDBOX", "1");
    quorrel::CloseNetwork();
    quorrel::RegisterTopicScheme();
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    testing::InitGoogleTest(&argc, argv);
    quorrel::GuardedApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    quorrel::LoadPictures();
    return RUN_ALL_TESTS();
}

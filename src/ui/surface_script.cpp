#include "ui/surface_script.hpp"

#include <QFile>
#include <QJsonDocument>

namespace quorrel {
namespace {

QByteArray ReadParts() {
    QByteArray code;
    // What a file uses while it is read stands before it.
    for (const char* name :
         {"page", "selection", "history", "html", "text_map", "ranges", "edit", "format", "tables",
          "controls", "clipboard", "narrow", "overlay", "keys", "start"}) {
        QFile file(QStringLiteral(":/quorrel/surface/%1.js").arg(QLatin1String(name)));
        if (!file.open(QIODevice::ReadOnly)) qFatal("surface script %s is not built in", name);
        code += file.readAll();
    }
    return code;
}

}  // namespace

QWebEngineScript SurfaceScript(const QJsonObject& setup) {
    static const QByteArray parts = ReadParts();
    const QByteArray json = QJsonDocument(setup).toJson(QJsonDocument::Compact);
    QWebEngineScript script;
    script.setName("surface");
    script.setInjectionPoint(QWebEngineScript::DocumentReady);
    script.setWorldId(QWebEngineScript::ApplicationWorld);
    script.setRunsOnSubFrames(false);
    script.setSourceCode(
        QString::fromUtf8("(() => {'use strict';const setup=" + json + ";\n" + parts + "})();"));
    return script;
}

}  // namespace quorrel

// sound/qtsound.cpp: the library libtarn-sound.so: plays sounds with the toolkit's multimedia library.
#include "controls/guisoundmodule.h"

#include <QAudioDevice>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace {

QSoundEffect* effectOf(void* sound) { return static_cast<QSoundEffect*>(sound); }

/// The component says in one line that there is no sound; what the drivers say on the way is many.
bool hasDevice()
{
    QtMessageHandler const previous =
        qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const&) {});
    bool const isNone = QMediaDevices::defaultAudioOutput().isNull();
    qInstallMessageHandler(previous);
    return !isNone;
}

void* open(char const* path)
{
    QString const file = QFile::decodeName(path);
    if (!hasDevice()) {
        QFile::remove(file);
        return nullptr;
    }
    auto* effect = new QSoundEffect;
    QObject::connect(effect, &QSoundEffect::statusChanged, effect, [effect, file] {
        if (effect->status() == QSoundEffect::Ready || effect->status() == QSoundEffect::Error)
            QFile::remove(file);
    });
    effect->setSource(QUrl::fromLocalFile(file));
    return effect;
}

void play(void* sound) { effectOf(sound)->play(); }
void stop(void* sound) { effectOf(sound)->stop(); }
void close(void* sound) { delete effectOf(sound); }

} // namespace

extern "C" __attribute__((visibility("default"))) TarnSoundModule const* tarnSoundModule()
{
    static constexpr TarnSoundModule module{TARN_SOUND_VERSION, open, play, stop, close};
    return &module;
}

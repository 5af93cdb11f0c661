#include "sandbox/files/file_stamp.h"

#include <QCryptographicHash>
#include <QFile>
#include <sys/stat.h>

QString stampOf(const QStringList& paths) {
    QCryptographicHash hash(QCryptographicHash::Sha1);
    for (const QString& path : paths) {
        struct stat file {};
        if (::stat(QFile::encodeName(path).constData(), &file) != 0) {
            hash.addData("-");
            continue;
        }
        hash.addData(QByteArray::number(static_cast<qlonglong>(file.st_size)) + ' ' +
                     QByteArray::number(static_cast<qlonglong>(file.st_mtim.tv_sec)) + '.' +
                     QByteArray::number(static_cast<qlonglong>(file.st_mtim.tv_nsec)) + ' ' +
                     QByteArray::number(static_cast<qulonglong>(file.st_ino)) + ';');
    }
    return QString::fromLatin1(hash.result().toHex());
}

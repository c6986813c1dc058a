// SPDX-License-Identifier: MIT
#include "images/ArtworkWriter.h"
#include "images/Catalogue.h"

#include <QDir>
#include <QTextStream>

namespace {

// The build and the catalogue each have a list of files: a picture in only one of them is an error.
bool sameFiles(QStringList expected, QStringList drawn, QTextStream &errors)
{
    expected.sort();
    drawn.sort();
    for (const QString &name : expected) {
        if (!drawn.contains(name))
            errors << "nothing draws " << name << '\n';
    }
    for (const QString &name : drawn) {
        if (!expected.contains(name))
            errors << "the build does not list " << name << '\n';
    }
    return expected == drawn;
}

bool writeAll(const std::vector<artwork::Artwork> &catalogue, const QString &folder,
              QTextStream &errors)
{
    for (const artwork::Artwork &picture : catalogue) {
        for (int density : artwork::densities) {
            if (!artwork::write(picture, density, folder)) {
                errors << "cannot write " << artwork::fileName(picture, density) << '\n';
                return false;
            }
        }
    }
    return true;
}

} // namespace

// Called by the build as: console-artwork FOLDER FILE...
int main(int argc, char *argv[])
{
    QTextStream errors(stderr);
    if (argc < 3) {
        errors << "usage: console-artwork FOLDER FILE...\n";
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    QStringList expected;
    for (int index = 2; index < argc; ++index)
        expected << QString::fromLocal8Bit(argv[index]);

    const auto catalogue = artwork::catalogue();
    QStringList drawn;
    for (const artwork::Artwork &picture : catalogue) {
        for (int density : artwork::densities)
            drawn << artwork::fileName(picture, density);
    }
    const bool complete = sameFiles(expected, drawn, errors) && QDir().mkpath(folder)
                          && writeAll(catalogue, folder, errors);
    return complete ? 0 : 1;
}

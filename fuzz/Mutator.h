// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>

#include <random>

/// Inputs that are nearly seeds, the same ones in every run: bytes changed, taken out, put in, repeated,
/// taken from another seed. What a compiler without libFuzzer can have of it.
class Mutator
{
public:
    /// `seeds` must not be empty.
    explicit Mutator(const QList<QByteArray> &seeds);

    QByteArray next();

private:
    qsizetype below(qsizetype count);
    const QByteArray &anySeed();
    QByteArray anyPitfall();
    void change(QByteArray &input);
    void changeByte(QByteArray &input);
    void putIn(QByteArray &input, const QByteArray &bytes);

    QList<QByteArray> m_seeds;
    std::minstd_rand
        m_random; // its numbers are the same everywhere, those of distributions are not
};

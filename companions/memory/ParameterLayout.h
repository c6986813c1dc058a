// SPDX-License-Identifier: MIT
#pragma once

#include "interfaces/Export.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

class ConsoleModel;

/// Which parameters a model has, in its order: what the values of a snapshot belong to. Kept beside
/// stored values, it lets them find their parameters again when the model has changed since.
class CONSOLECOMPANIONS_EXPORT ParameterLayout
{
public:
    /// One parameter, by name and by address; its elements follow one another.
    struct Parameter
    {
        QString name;     ///< "block/parameter"
        int group = 0;    ///< as in addresses
        int index = 0;    ///< as in addresses
        int elements = 0; ///< how many values it has

        /// The same name, address and size.
        bool operator==(const Parameter &) const = default;
    };

    /// All parameters of the model.
    explicit ParameterLayout(const ConsoleModel &model);
    /// The layout that a description tells of; nothing when it is not a whole one.
    static std::optional<ParameterLayout> fromDescription(const QByteArray &description);

    /// In the order in which their values are kept.
    const std::vector<Parameter> &parameters() const { return m_parameters; }
    /// How many values there are: all elements of all parameters.
    size_t valueCount() const { return m_valueCount; }

    /// Text, a line for each parameter.
    const QByteArray &description() const { return m_description; }
    /// Short, and the same for the same description only.
    const QByteArray &fingerprint() const { return m_fingerprint; }

private:
    explicit ParameterLayout(std::vector<Parameter> parameters);

    std::vector<Parameter> m_parameters;
    size_t m_valueCount = 0;
    QByteArray m_description;
    QByteArray m_fingerprint;
};

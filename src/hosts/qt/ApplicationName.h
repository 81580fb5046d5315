#pragma once

#include <QString>

namespace velmorath {

/// Under which desktops know the program: the name of its desktop entry, and its own on the session bus.
inline const QString applicationName = QStringLiteral("org.velmorath.velmorath");

} // namespace velmorath

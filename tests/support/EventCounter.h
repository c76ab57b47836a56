// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QEvent>
#include <QObject>
#include <QVector>

/// Counts the events that an object gets while both live.
class EventCounter : public QObject {
public:
    explicit EventCounter(QObject* watched)
        : QObject(watched)
    {
        watched->installEventFilter(this);
    }

    int all() const { return m_types.size(); }
    int count(QEvent::Type type) const { return m_types.count(type); }
    /// Whether raise() was called on a window.
    bool wasRaised() const { return m_types.contains(QEvent::ZOrderChange); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_types.append(event->type());
        return QObject::eventFilter(watched, event);
    }

private:
    QVector<QEvent::Type> m_types;
};

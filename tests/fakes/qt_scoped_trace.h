#pragma once

#include <QTest>
#include <QtGlobal>

namespace zv::fakes {

// Qt Test's counterpart of a table row's label: a check that fails inside the row returns from
// the test function, and the row's name is printed on the way out.
class RowTrace {
public:
    explicit RowTrace(const char* label) : m_label(label) {}
    ~RowTrace() {
        if (QTest::currentTestFailed()) {
            qWarning("in the row: %s", m_label);
        }
    }
    RowTrace(const RowTrace&) = delete;
    RowTrace& operator=(const RowTrace&) = delete;

private:
    const char* m_label;
};

}  // namespace zv::fakes

#define ZV_TRACE_NAME2(line) rowTrace##line
#define ZV_TRACE_NAME(line) ZV_TRACE_NAME2(line)
#define SCOPED_TRACE(label) const zv::fakes::RowTrace ZV_TRACE_NAME(__LINE__)(label)

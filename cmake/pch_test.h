// Headers that nearly every test needs.
#include "pch_core.h"

#include "tests/support/print.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#pragma once

class QWidget;

/**
 * How long the start takes. With the environment variable ZENTO_STARTUP_TIMINGS, which holds the moment of
 * the exec in nanoseconds since the epoch, the process prints after its first paint when each step was over
 * (bench/startup does it many times); without it nothing is measured.
 */
namespace StartupTimings {

/** The step is over. */
void Note(const char* sStep);

/** Prints all once the widget has been painted for the first time. */
void PrintAfterFirstPaint(QWidget* pWidget);

} // namespace StartupTimings

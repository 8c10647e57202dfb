#pragma once

/** Who wants to know how far a long work is, and may stop it. */
class IProgress
{
public:
    virtual ~IProgress() = default;
    /**
     * Tells how much is done; callable from the thread that works.
     *
     * @param dDone  0 to 1; below 0: not known
     * @return false if the work shall stop
     */
    virtual bool Step(double dDone) = 0;
};

#pragma once

#include <vector>

/** Numbers from 0 for places that hold a value for a while: each is given out again once it was given back.
 */
class CRegisterPool
{
public:
    int Take()
    {
        if (m_free.empty())
            return m_nCount++;
        const int nRegister = m_free.back();
        m_free.pop_back();
        return nRegister;
    }
    void GiveBack(int nRegister) { m_free.push_back(nRegister); }
    /** As many as were ever out at a time. */
    int Count() const { return m_nCount; }

private:
    std::vector<int> m_free;
    int m_nCount = 0;
};

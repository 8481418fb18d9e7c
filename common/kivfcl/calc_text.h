// DDX_CalcText: a number field that also takes calculations.
//
//   DDX_CalcText(pDX, IDC_ROWS, m_nRows);
//   DDV_MinMaxInt(pDX, m_nRows, 1, 20);
//   DDX_CalcText(pDX, IDC_TOTAL_WIDTH, m_fTotalWidth, 0, 0);
#pragma once

#include "framework/data_exchange.h"
#include "kivfcl/kivfcl_export.h"

/// Show the number with all its decimals, at least `fewestDecimals`, so that showing and reading back
/// changes nothing. Read a number or a calculation: "1000/3", "210-2*15.5", "(297-20)/4", in full
/// width, too (kivfcl/expression tells them all). A field whose text comes to the number that is to
/// be shown keeps its text, and a number whose field still shows it keeps its value, bit by bit.
/// Anything else is refused with a message that shows the text at fault: what is no calculation,
/// divides by zero, or comes to what the number's type cannot hold. The last argument is not used;
/// callers pass 0.
KIVFCL_API void DDX_CalcText(CDataExchange* pDX, int id, int& value);
KIVFCL_API void DDX_CalcText(CDataExchange* pDX, int id, float& value, short fewestDecimals,
                             short reserved);
KIVFCL_API void DDX_CalcText(CDataExchange* pDX, int id, double& value, short fewestDecimals,
                             short reserved);

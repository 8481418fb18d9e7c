#include "kivdata/val_info_one_data.h"

#include "kivdata/field_macro.h"

#include <optional>
#include <utility>

int CKivValInfoOneData::SetMacroString(const char* text, int parse) {
  const std::optional<quorvel::FieldMacro> macro = quorvel::ParseFieldMacro(CString(text).View());
  if (parse == 0) {
    return macro ? 1 : 0;
  }
  if (!macro) {
    m_valType = 0;
    return 0;
  }
  CKivValInfoOneData read;  // taken whole at the end, should memory run out on the way
  read.SetValType(macro->valType);
  read.SetFieldName(macro->fieldName.c_str());
  read.SetFindType(macro->findType);
  read.SetFindValue(macro->findValue.c_str());
  read.SetRefField(macro->refField.c_str());
  read.SetUseDesimalPointBeam(macro->useDecimalPointBeam);
  read.SetBeam(macro->beam);
  read.SetUse3Figures(macro->use3Figures);
  *this = std::move(read);
  return 1;
}

CString CKivValInfoOneData::GetMacroString(const char* typeText) const {
  quorvel::FieldMacro macro;
  macro.typeText = CString(typeText).View();
  macro.valType = m_valType;
  macro.fieldName = m_strFieldName.View();
  macro.findType = m_findType;
  macro.findValue = m_strFindValue.View();
  macro.refField = m_strRefField.View();
  macro.beam = m_beam;
  macro.useDecimalPointBeam = m_useDesimalPointBeam;
  macro.use3Figures = m_use3Figures;
  return CString(quorvel::FieldMacroText(macro));
}

unsigned int CKivValInfoOneData::GetValType() const {
  return m_valType;
}
void CKivValInfoOneData::SetValType(unsigned int valType) {
  m_valType = valType;
}

CString CKivValInfoOneData::GetFieldName() const {
  return m_strFieldName;
}
void CKivValInfoOneData::SetFieldName(const char* fieldName) {
  m_strFieldName = fieldName;
}

unsigned char CKivValInfoOneData::GetFindType() const {
  return m_findType;
}
void CKivValInfoOneData::SetFindType(unsigned char findType) {
  m_findType = findType;
}

CString CKivValInfoOneData::GetFindValue() const {
  return m_strFindValue;
}
void CKivValInfoOneData::SetFindValue(const char* findValue) {
  m_strFindValue = findValue;
}

CString CKivValInfoOneData::GetRefField() const {
  return m_strRefField;
}
void CKivValInfoOneData::SetRefField(const char* refField) {
  m_strRefField = refField;
}

int CKivValInfoOneData::GetUseDesimalPointBeam() const {
  return m_useDesimalPointBeam;
}
void CKivValInfoOneData::SetUseDesimalPointBeam(int useDesimalPointBeam) {
  m_useDesimalPointBeam = useDesimalPointBeam;
}

unsigned char CKivValInfoOneData::GetBeam() const {
  return m_beam;
}
void CKivValInfoOneData::SetBeam(unsigned char beam) {
  m_beam = beam;
}

int CKivValInfoOneData::GetUse3Figures() const {
  return m_use3Figures;
}
void CKivValInfoOneData::SetUse3Figures(int use3Figures) {
  m_use3Figures = use3Figures;
}

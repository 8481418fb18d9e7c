#include "driver/controls.h"
#include "driver/modal_script.h"
#include "driver/picture.h"
#include <gtest/gtest.h>
#include <quorvel/quorvel.h>
namespace quorvel::driver {
TEST(Probe, Pictures) {
  auto shot = [](const wchar_t* name) { return [name](HWND d) { 
     RECT r = WindowRect(d); printf("%ls %ld,%ld %ldx%ld focus %d owner %p\n", name, r.left, r.top, r.right-r.left, r.bottom-r.top, FocusedControlId(d), (void*)GetWindow(d,GW_OWNER));
     for (int i : TabOrder(d)) { printf(" %d", i); }
 puts("");
     DWORD a=0,b=0; HWND f=GetFocus(); SendMessageW(f, EM_GETSEL, (WPARAM)&a,(LPARAM)&b); printf("sel %lu %lu\n", a,b);
     SavePng(ReadScreen(r), (std::wstring(L"/tmp/x_")+name+L".png").c_str());
     PostMessageW(d, WM_COMMAND, IDCANCEL, 0); }; };
  double v=1000.4; int dpi=300; double pt[3]={100,200,300.12345};
  { ModalScript s; s.When(SteadyOnScreen(AnyDialog()), shot(L"scale")); EXPECT_FALSE(__InputScaleDlg("縮尺の題","A&B とても長いコメントがここにあり、枠からはみ出すはずですがどうでしょうか", &v, nullptr)); EXPECT_TRUE(s.Finished())<<s.Problem(); }
  { ModalScript s; s.When(SteadyOnScreen(AnyDialog()), shot(L"dpi")); EXPECT_FALSE(__InputDpiDlg(&dpi, nullptr)); }
  { ModalScript s; s.When(SteadyOnScreen(AnyDialog()), shot(L"xy")); EXPECT_EQ(1,__InputPointXYDlg(pt,FALSE, nullptr)); }
  { ModalScript s; s.When(SteadyOnScreen(AnyDialog()), shot(L"xyz")); EXPECT_EQ(1,__InputPointXYZDlg(pt,TRUE, nullptr)); }
  CString name("x"); int w=420,h=297,c=7;
  { ModalScript s; s.When(SteadyOnScreen(AnyDialog()), shot(L"paper")); EXPECT_EQ(0,__UserPaperSetDlg(nullptr,&name,&w,&h,&c,nullptr)); }
  CString title("一覧"); CArray<CString,CString&> items; CByteArray st; for (int i=0;i<8;i++){ CString n("項目の名前"); CString k; k.Format("%d",i); n+=k; if(i==3) n+=" とても長い名前の項目、四番"; items.Add(n); st.Add(i%3==0?5:0);} 
  { ModalScript s; s.When(SteadyOnScreen(AnyDialog()), shot(L"check")); EXPECT_EQ(2,__CheckListDlg(&title,&items,&st)); }
}
}

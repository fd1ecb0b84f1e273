; The windows: which pages there are, their pictures and their own words.
!define MUI_ICON "${__FILEDIR__}/setup.ico"
!define MUI_UNICON "${__FILEDIR__}/uninstall.ico"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP "${__FILEDIR__}/header.bmp"
!define MUI_HEADERIMAGE_UNBITMAP "${__FILEDIR__}/header.bmp"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${__FILEDIR__}/side.bmp"
!define MUI_UNWELCOMEFINISHPAGE_BITMAP "${__FILEDIR__}/side.bmp"
!define MUI_ABORTWARNING

Var FolderText ; above the folder: how it was found

!define MUI_WELCOMEPAGE_TEXT $(welcome)
!insertmacro MUI_PAGE_WELCOME

!define MUI_PAGE_HEADER_SUBTEXT $(folderHead)
!define MUI_DIRECTORYPAGE_TEXT_TOP $FolderText
!define MUI_PAGE_CUSTOMFUNCTION_PRE beforeFolder
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE afterFolder
!insertmacro MUI_PAGE_DIRECTORY

!define MUI_FINISHPAGE_NOAUTOCLOSE
!insertmacro MUI_PAGE_INSTFILES

!define MUI_FINISHPAGE_TEXT $(finish)
!insertmacro MUI_PAGE_FINISH

!insertmacro MUI_UNPAGE_CONFIRM
!define MUI_UNFINISHPAGE_NOAUTOCLOSE
!define MUI_COMPONENTSPAGE_NODESC
!define MUI_PAGE_CUSTOMFUNCTION_SHOW un.afterComponents
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_UNPAGE_FINISH

!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Japanese"
!insertmacro MUI_LANGUAGE "SimpChinese"

; A row that one of the tables lacks is a warning of makensis, which ends it.
!macro Text NAME TEXT
  LangString ${NAME} ${LANG} "${TEXT}"
!macroend
!define Text "!insertmacro Text"
!macro Texts LANGUAGE FILE
  !define LANG ${LANGUAGE}
  !include "texts/${FILE}.nsh"
  !undef LANG
!macroend
!insertmacro Texts ${LANG_ENGLISH} english
!insertmacro Texts ${LANG_JAPANESE} japanese
!insertmacro Texts ${LANG_SIMPCHINESE} chinese

Function beforeFolder
  ${If} $FoundBy == ""
    StrCpy $FolderText $(folderNotFound)
  ${ElseIf} $InstalledIn != $Found
    StrCpy $FolderText $(folderFound)
  ${ElseIf} $IsRepair = 1
    StrCpy $FolderText $(folderRepair)
  ${Else}
    StrCpy $FolderText $(folderUpgrade)
  ${EndIf}
FunctionEnd

Function afterFolder
  Call CheckFolder
  ${If} $R0 != ""
    MessageBox MB_OK|MB_ICONEXCLAMATION $R0
    Abort
  ${EndIf}
  ${IfNot} ${FileExists} "$INSTDIR\${LIBRARY}"
  ${AndIf} ${Cmd} 'MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 $(askWithout) IDNO'
    Abort
  ${EndIf}
FunctionEnd

; The system's line on how much room is needed says nothing here.
Function un.afterComponents
  FindWindow $0 "#32770" "" $HWNDPARENT
  GetDlgItem $0 $0 1023
  ShowWindow $0 ${SW_HIDE}
FunctionEnd

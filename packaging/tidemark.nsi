; The installer: makensis -DVERSION=2.1.0 -DPROGRAM=folder -DOUTPUT=setup.exe tidemark.nsi
; PROGRAM holds the program as it stands when it is installed. /S installs and updates without a
; window; the exit status is 2 when nothing was changed because the program is running, or when a
; file could not be written.
;
; What a person may want back stays, whatever happens to the program: undo files and backups, what
; was switched off from the start-up folders, and with them the ignore list.

Unicode true
Target amd64-unicode
ManifestDPIAware true
ManifestSupportedOS all
SetCompressor /SOLID lzma
; A file that can't be written ends the installation; silently, it would be left out otherwise.
AllowSkipFiles off

!include MUI2.nsh
!include LogicLib.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tidemark"
!define LOGON_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define PUBLISHER "The Tidemark developers"
; The logon entry's name has these two.
!searchparse "${VERSION}" "" MAJOR "." MINOR "."

Name "Tidemark"
OutFile "${OUTPUT}"
RequestExecutionLevel admin
InstallDir "$PROGRAMFILES64\Tidemark"
; An update goes where the program is.
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
BrandingText "Tidemark ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Tidemark"
VIAddVersionKey CompanyName "${PUBLISHER}"
VIAddVersionKey FileDescription "Tidemark Setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright ""

!define MUI_ICON "${PROGRAM}\images\tidemark.ico"
!define MUI_UNICON "${PROGRAM}\images\tidemark.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${__FILEDIR__}/setup.bmp"
!define MUI_ABORTWARNING
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenInstalled
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\tidemark.exe"
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Tidemark will be removed. Undo files, backups, what was switched \
    off from the start-up folders and the ignore list can stay: you will be asked."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A program that runs can't be replaced or deleted; its file can't even be opened for writing.
!macro REFUSE_WHILE_RUNNING
  ${If} ${FileExists} "$INSTDIR\tidemark.exe"
    ${Do}
      ClearErrors
      FileOpen $0 "$INSTDIR\tidemark.exe" a
      ${IfNot} ${Errors}
        FileClose $0
        ${Break}
      ${EndIf}
      ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
          "Tidemark is running. Please close it first." /SD IDCANCEL IDCANCEL`
        SetErrorLevel 2
        Quit
      ${EndIf}
    ${Loop}
  ${EndIf}
!macroend

; Only what the program brought: the folder may be one that holds more.
!macro DELETE_PICTURES
  Delete "$INSTDIR\images\*.jpg"
  Delete "$INSTDIR\images\*.ico"
  Delete "$INSTDIR\images\*.bmp"
  RMDir "$INSTDIR\images"
!macroend

; The program's value in a key that names what starts with the system, of whichever version. $3 is
; "1" if there was one.
!macro DELETE_LOGON_ENTRIES KEY
  StrCpy $3 0
  StrCpy $0 0
  ${Do}
    ClearErrors
    EnumRegValue $1 HKCU "${KEY}" $0
    ${If} ${Errors}
      ${Break}
    ${EndIf}
    StrCpy $2 $1 11
    ${If} $2 == "Tidemark - "
      StrCpy $3 1
      DeleteRegValue HKCU "${KEY}" "$1"
      ${If} ${Errors}
        IntOp $0 $0 + 1
      ${EndIf}
    ${Else}
      IntOp $0 $0 + 1
    ${EndIf}
  ${Loop}
!macroend

; The entry of a former version becomes this one's, which the program would not see as its own; who
; has none or has it switched off keeps it so.
!macro RENEW_LOGON_ENTRY KEY
  !insertmacro DELETE_LOGON_ENTRIES "${KEY}"
  ${If} $3 == 1
    WriteRegStr HKCU "${KEY}" "Tidemark - ${MAJOR}.${MINOR}" "$INSTDIR\tidemark.exe /m"
  ${EndIf}
!macroend

; Each user's logon task: the system keeps a file of its name for it.
!macro DELETE_LOGON_TASKS
  FindFirst $0 $1 "$SYSDIR\Tasks\Tidemark at logon of *"
  ${DoWhile} $1 != ""
    nsExec::Exec '"$SYSDIR\schtasks.exe" /delete /tn "$1" /f'
    Pop $2
    FindNext $0 $1
  ${Loop}
  FindClose $0
!macroend

Function SkipWhenInstalled
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 != ""
    Abort
  ${EndIf}
FunctionEnd

Section "" whole_program
  SetRegView 64
  SetShellVarContext all
  !insertmacro REFUSE_WHILE_RUNNING
  ; A former version may have had other pictures.
  ${If} ${FileExists} "$INSTDIR\uninstall.exe"
    !insertmacro DELETE_PICTURES
  ${EndIf}
  SetOutPath "$INSTDIR"
  File "${PROGRAM}\tidemark.exe"
  SetOverwrite off
  File "${PROGRAM}\Ignorelst.ini"
  SetOverwrite on
  File /r "${PROGRAM}\images"
  CreateDirectory "$INSTDIR\backup"
  CreateDirectory "$INSTDIR\Startup Folder\All Users"
  CreateDirectory "$INSTDIR\Startup Folder\Current User"
  CreateShortcut "$SMPROGRAMS\Tidemark.lnk" "$INSTDIR\tidemark.exe"

  !insertmacro RENEW_LOGON_ENTRY "${LOGON_KEY}"
  !insertmacro RENEW_LOGON_ENTRY "-${LOGON_KEY}"

  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Tidemark"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\tidemark.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
  ; In kilobytes; the person's own files in the folder don't count.
  SectionGetSize ${whole_program} $0
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" $0
SectionEnd

Section Uninstall
  SetRegView 64
  SetShellVarContext all
  !insertmacro REFUSE_WHILE_RUNNING
  Delete "$INSTDIR\tidemark.exe"
  Delete "$INSTDIR\tmp.reg"
  Delete "$INSTDIR\uninstall.exe"
  !insertmacro DELETE_PICTURES
  Delete "$SMPROGRAMS\Tidemark.lnk"
  ; These go only when nothing is in them.
  RMDir "$INSTDIR\backup"
  RMDir "$INSTDIR\Startup Folder\All Users"
  RMDir "$INSTDIR\Startup Folder\Current User"
  RMDir "$INSTDIR\Startup Folder"
  ${If} ${FileExists} "$INSTDIR\backup\*.*"
  ${OrIf} ${FileExists} "$INSTDIR\Startup Folder\*.*"
  ${OrIf} ${FileExists} "$INSTDIR\Ignorelst.ini"
    ${If} ${Cmd} `MessageBox MB_YESNO|MB_ICONQUESTION \
        "Keep the undo files, the backups of the registry, what was switched off from the start-up \
        folders, and the ignore list?$\r$\nThey stay in $INSTDIR." /SD IDYES IDNO`
      RMDir /r "$INSTDIR\backup"
      RMDir /r "$INSTDIR\Startup Folder"
      Delete "$INSTDIR\Ignorelst.ini"
    ${EndIf}
  ${EndIf}
  RMDir "$INSTDIR"
  !insertmacro DELETE_LOGON_ENTRIES "${LOGON_KEY}"
  ; Where it is when it was switched off in the program's own list.
  !insertmacro DELETE_LOGON_ENTRIES "-${LOGON_KEY}"
  !insertmacro DELETE_LOGON_TASKS
  DeleteRegKey HKCU "Software\Tidemark"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd

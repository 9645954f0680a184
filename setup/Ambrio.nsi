; The installer. scripts/package calls makensis with these values and with a folder that holds what is
; installed, win32\ and win64\ in it:
;   NAME VERSION PUBLISHER COPYRIGHT DESCRIPTION   what cmake/product.sh.in says
;   CONTENT                                        that folder
;   KILOBYTES_32 KILOBYTES_64                      how large either program is with what belongs to it
;   OUTPUT                                         the file to be made
;   SIGN                                           a command that signs a file; none leaves it unsigned
;
; Ambrio-VERSION-setup.exe [/S] [/AllUsers | /CurrentUser] [/MakeSaver | /KeepSaver]
;   /S            asks nothing and shows nothing
;   /AllUsers     into the Windows folder, where the display settings list it. Needs an administrator's
;                 rights; without them it ends with 740
;   /CurrentUser  into this user's own programs, without any rights
;   /MakeSaver    makes Ambrio this user's screen saver, /KeepSaver leaves the present one. When nothing
;                 is said it is made that only where it would not be listed otherwise: /CurrentUser
; Ends with 0, with 740, with 1150 on a Windows that is too old, with 2 when anything else failed.
;
; The upgrade and the removal work while Ambrio runs: what is in use is put aside under another name
; and goes when it can. Removing leaves the user's settings, the log and the copies.

Unicode true
SetCompressor /SOLID lzma
SetDateSave off ; the same input makes the same bytes
AllowSkipFiles off ; a file that cannot be written ends a silent installation, too
CRCCheck force
ManifestDPIAware true
ManifestSupportedOS all
RequestExecutionLevel user ; asks for more only for what needs more
ShowInstDetails nevershow
ShowUninstDetails nevershow
BrandingText "${NAME} ${VERSION}"
Name "${NAME}"
OutFile "${OUTPUT}"

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installs ${NAME}"
VIAddVersionKey "CompanyName" "${PUBLISHER}"
VIAddVersionKey "LegalCopyright" "${COPYRIGHT}"

!ifdef SIGN
    !finalize '${SIGN} "%1"' = 0
    !uninstfinalize '${SIGN} "%1"' = 0
!endif

!include LogicLib.nsh
!include FileFunc.nsh
!include WinVer.nsh
!include x64.nsh
!include nsDialogs.nsh
!include MUI2.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define NEEDS_ELEVATION 740
!define WINDOWS_TOO_OLD 1150

Var ForEverybody   ; 1 when it is for all users, 0 when for this one
Var ProgramFolder  ; where the program is, without a separator at its end

!include Place.nsh
!include InUse.nsh
!include Saver.nsh
!include Choice.nsh

!define MUI_ICON "..\resources\Ambrio.ico"
!define MUI_UNICON "..\resources\Ambrio.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "Finished.bmp"
!define MUI_ABORTWARNING
Page custom ChoicePage ChoicePageLeave
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "${NAME} is installed"
!define MUI_FINISHPAGE_TEXT "${NAME} backs up what you tell it to: which folders to copy, and where to. Unless you have done so before, do it now.$\r$\n$\r$\nYou find it in the Start menu. The button Settings... of the screen saver settings leads there, too."
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Configure ${NAME} now"
!define MUI_FINISHPAGE_RUN_FUNCTION Configure
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "${NAME} will be removed. Your backup Sets and other settings, the log Ambrio.log and all copies of your files are left where they are."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Function .onInit
    ${IfNot} ${AtLeastWin7}
        MessageBox MB_OK|MB_ICONSTOP "${NAME} needs Windows 7 or later." /SD IDOK
        SetErrorLevel ${WINDOWS_TOO_OLD}
        Quit
    ${EndIf}
    !insertmacro ChooseRegistryView
    Call FindProcessor
    Call TakeChoices
    Call FindPlace
    ${If} ${Silent}
    ${AndIf} $ForEverybody = 1
        Call HasRights
        Pop $0
        ${If} $0 = 0
            SetErrorLevel ${NEEDS_ELEVATION}
            Quit
        ${EndIf}
    ${EndIf}
FunctionEnd

!macro PutEither NAME
    ${If} $Is64Bit = 1
        !insertmacro Put "${CONTENT}\win64\${NAME}" "$ProgramFolder\${NAME}"
    ${Else}
        !insertmacro Put "${CONTENT}\win32\${NAME}" "$ProgramFolder\${NAME}"
    ${EndIf}
!macroend

; What can be had only with rights where it is for everybody.
Function PutFiles
    Call SweepAside
    CreateDirectory "$INSTDIR"
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    Call RegisterUninstaller ; first, so that half an installation can be removed
    !insertmacro Put "${CONTENT}\LICENSE.txt" "$INSTDIR\LICENSE.txt"
    !insertmacro Put "${CONTENT}\ThirdPartyNotices.txt" "$INSTDIR\ThirdPartyNotices.txt"
    ${If} $Is64Bit = 1
        !insertmacro Put "${CONTENT}\win64\AmbrioStart.exe" "$INSTDIR\AmbrioStart.exe"
    ${Else}
        !insertmacro Put "${CONTENT}\win32\AmbrioStart.exe" "$INSTDIR\AmbrioStart.exe"
    ${EndIf}
    !insertmacro PutEither "filecopy.avi"
    !insertmacro PutEither "Ambrio.HLP"
    !insertmacro PutEither "Ambrio.cnt"
    !insertmacro PutEither "Ambrio.html"
    !insertmacro PutEither "Ambrio.scr"
    Call AddToStartMenu
    Call RegisterVersion ; last: it says that all of it is there
FunctionEnd

Section
    ${If} $ForEverybody = 1
        Call HasRights
        Pop $0
        ${If} $0 = 0
            Call PutFilesWithRights
        ${Else}
            Call PutFiles
        ${EndIf}
        Call LeaveOwnPlace
    ${Else}
        Call PutFiles
    ${EndIf}
    ; Not with another's rights: the saver is that of the user who has started this.
    ${If} $MakeSaver = 1
        Call MakeSaver
    ${EndIf}
SectionEnd

Function PutFilesWithRights
    DetailPrint "Asking for an administrator's rights..."
    ClearErrors
    ExecShellWait "runas" "$EXEPATH" "/S /AllUsers /KeepSaver"
    ${If} ${Errors}
        StrCpy $0 ""
    ${Else}
        ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "DisplayVersion"
    ${EndIf}
    ${IfNot} $0 == "${VERSION}"
    ${OrIfNot} ${FileExists} "$ProgramFolder\Ambrio.scr"
        MessageBox MB_OK|MB_ICONSTOP "${NAME} was not installed. For everybody it can be installed only with an administrator's rights."
        SetErrorLevel ${NEEDS_ELEVATION}
        Quit
    ${EndIf}
FunctionEnd

; An installation of this user's own gives way to one for everybody, and its place as the saver with
; it. The parts of it that the remover does not leave are gone when this returns.
Function LeaveOwnPlace
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "UninstallString"
    ${If} $0 == ""
        Return
    ${EndIf}
    StrCpy $ForEverybody 0
    Call FindPlace
    Call IsOurs
    Pop $0
    ${If} $0 = 1
        StrCpy $MakeSaver 1
    ${EndIf}
    ExecWait '"$INSTDIR\Uninstall.exe" /S _?=$INSTDIR' ; in its place, so that it can be waited for
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR"
    StrCpy $ForEverybody 1
    Call FindPlace
FunctionEnd

Function Configure
    Exec '"$INSTDIR\AmbrioStart.exe" /C'
FunctionEnd

Function un.onInit
    !insertmacro ChooseRegistryView
    Call un.FindPlace
    ${If} ${Silent}
    ${AndIf} $ForEverybody = 1
        Call un.HasRights
        Pop $0
        ${If} $0 = 0
            SetErrorLevel ${NEEDS_ELEVATION}
            Quit
        ${EndIf}
    ${EndIf}
FunctionEnd

Function un.RemoveFiles
    Call un.RemoveFromStartMenu
    !insertmacro Remove "$ProgramFolder" "Ambrio.scr"
    !insertmacro Remove "$ProgramFolder" "filecopy.avi"
    !insertmacro Remove "$ProgramFolder" "Ambrio.HLP"
    !insertmacro Remove "$ProgramFolder" "Ambrio.cnt"
    !insertmacro Remove "$ProgramFolder" "Ambrio.GID" ; what the help viewer keeps
    !insertmacro Remove "$ProgramFolder" "Ambrio.html"
    !insertmacro Remove "$INSTDIR" "AmbrioStart.exe"
    !insertmacro Remove "$INSTDIR" "LICENSE.txt"
    !insertmacro Remove "$INSTDIR" "ThirdPartyNotices.txt"
    !insertmacro Remove "$INSTDIR" "Uninstall.exe"
    RMDir "$INSTDIR" ; stays when the log is in it
    Call un.Unregister
FunctionEnd

Section un.
    Call un.RestoreSaver
    ${If} $ForEverybody = 1
        Call un.HasRights
        Pop $0
        ${If} $0 = 0
            Call un.RemoveFilesWithRights
        ${Else}
            Call un.RemoveFiles
        ${EndIf}
    ${Else}
        Call un.RemoveFiles
    ${EndIf}
SectionEnd

; The remover that is started goes on from a copy of itself, so its end says nothing: what it does
; last is looked for instead, for a minute.
Function un.RemoveFilesWithRights
    ExecShellWait "runas" "$INSTDIR\Uninstall.exe" "/S"
    StrCpy $1 0
    ${Do}
        ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "UninstallString"
        ${If} $0 == ""
            Return
        ${EndIf}
        Sleep 200
        IntOp $1 $1 + 1
    ${LoopUntil} $1 = 300
    MessageBox MB_OK|MB_ICONSTOP "${NAME} was not removed. It was installed for everybody and can be removed only with an administrator's rights."
    SetErrorLevel ${NEEDS_ELEVATION}
    Quit
FunctionEnd

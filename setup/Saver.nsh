; Making Ambrio the user's screen saver, and giving back the one before. The time after which a saver
; starts is never touched.

!define SETUP_KEY "Software\${NAME}\Setup"
!define DESKTOP_KEY "Control Panel\Desktop"
!define DESKTOP_POLICIES "Software\Policies\Microsoft\Windows\Control Panel\Desktop"
!define SYSTEM_POLICIES "Software\Microsoft\Windows\CurrentVersion\Policies\System"
!define SPI_SETSCREENSAVEACTIVE 0x11
!define SPIF_STORE_AND_TELL 3

!macro SaverFunctions UN
    ; Leaves 1 on the stack when the present saver is the Ambrio.scr of this installation, by its long
    ; or its short path.
    Function ${UN}IsOurs
        Push $0
        Push $1
        ReadRegStr $0 HKCU "${DESKTOP_KEY}" "SCRNSAVE.EXE"
        ExpandEnvStrings $0 $0
        Push $2
        System::Call 'kernel32::GetLongPathNameW(w r0, w .r0, i ${NSIS_MAX_STRLEN}) i.r2'
        System::Call 'kernel32::GetLongPathNameW(w "$ProgramFolder\Ambrio.scr", w .r1, i ${NSIS_MAX_STRLEN})'
        ${If} $2 <> 0 ; else there is no such file
        ${AndIf} $0 == $1
            StrCpy $0 1
        ${Else}
            StrCpy $0 0
        ${EndIf}
        Pop $2
        Pop $1
        Exch $0
    FunctionEnd

    ; Takes 1 or 0 from the stack: whether the system is to start savers.
    Function ${UN}LetSaversStart
        Exch $0
        System::Call 'user32::SystemParametersInfoW(i ${SPI_SETSCREENSAVEACTIVE}, i $0, p 0, i ${SPIF_STORE_AND_TELL})'
        WriteRegStr HKCU "${DESKTOP_KEY}" "ScreenSaveActive" "$0"
        Pop $0
    FunctionEnd
!macroend
!insertmacro SaverFunctions ""
!insertmacro SaverFunctions "un."

; Leaves 1 on the stack when an administrator has decided which saver there is, or that the user
; decides nothing about it.
Function IsSaverDecided
    Push $0
    Push $1
    StrCpy $1 0
    ReadRegStr $0 HKCU "${DESKTOP_POLICIES}" "SCRNSAVE.EXE"
    ${If} $0 != ""
        StrCpy $1 1
    ${EndIf}
    ReadRegStr $0 HKCU "${DESKTOP_POLICIES}" "ScreenSaveActive"
    ${If} $0 == "0"
        StrCpy $1 1
    ${EndIf}
    ReadRegDWORD $0 HKCU "${SYSTEM_POLICIES}" "NoDispScrSavPage"
    ${If} $0 = 1
        StrCpy $1 1
    ${EndIf}
    ReadRegDWORD $0 HKCU "${SYSTEM_POLICIES}" "NoDispCPL"
    ${If} $0 = 1
        StrCpy $1 1
    ${EndIf}
    StrCpy $0 $1
    Pop $1
    Exch $0
FunctionEnd

Function MakeSaver
    Call IsSaverDecided
    Pop $0
    ${If} $0 = 1
        DetailPrint "The screen saver is decided by an administrator and stays as it is."
        Return
    ${EndIf}
    Call IsOurs
    Pop $0
    ${If} $0 = 0
        ; An upgrade does not come here, so that this remembers the user's own choice.
        ReadRegStr $0 HKCU "${DESKTOP_KEY}" "SCRNSAVE.EXE"
        WriteRegStr HKCU "${SETUP_KEY}" "PreviousSaver" "$0"
        ReadRegStr $0 HKCU "${DESKTOP_KEY}" "ScreenSaveActive"
        WriteRegStr HKCU "${SETUP_KEY}" "PreviousActive" "$0"
        ; The system takes the text for a command line: no blanks, as far as there is a short path.
        StrCpy $0 "$ProgramFolder\Ambrio.scr"
        Push $0
        Call HasBlank
        Pop $1
        ${If} $1 = 1
            GetFullPathName /SHORT $1 "$0"
            ${If} $1 != ""
                StrCpy $0 $1
            ${EndIf}
        ${EndIf}
        WriteRegStr HKCU "${DESKTOP_KEY}" "SCRNSAVE.EXE" "$0"
    ${EndIf}
    ReadRegStr $0 HKCU "${DESKTOP_KEY}" "ScreenSaveActive"
    ${If} $0 != "1"
        Push 1
        Call LetSaversStart
    ${EndIf}
FunctionEnd

; Takes a text from the stack and leaves 1 when there is a blank in it.
Function HasBlank
    Exch $0
    Push $1
    Push $2
    StrCpy $1 0
    ${Do}
        StrCpy $2 $0 1 $1
        IntOp $1 $1 + 1
        ${If} $2 == " "
            StrCpy $2 1
            ${Break}
        ${EndIf}
    ${LoopUntil} $2 == ""
    StrCpy $0 $2
    Pop $2
    Pop $1
    Exch $0
FunctionEnd

; Only what still names this installation is changed back: a saver that the user has chosen since
; stays. To be called while the program's file is there.
Function un.RestoreSaver
    Call un.IsOurs
    Pop $0
    ${If} $0 = 1
        ReadRegStr $0 HKCU "${SETUP_KEY}" "PreviousSaver"
        ${If} $0 == ""
            DeleteRegValue HKCU "${DESKTOP_KEY}" "SCRNSAVE.EXE"
        ${Else}
            WriteRegStr HKCU "${DESKTOP_KEY}" "SCRNSAVE.EXE" "$0"
        ${EndIf}
        ReadRegStr $0 HKCU "${SETUP_KEY}" "PreviousActive"
        ${If} $0 == "0"
            Push 0
            Call un.LetSaversStart
        ${EndIf}
    ${EndIf}
    DeleteRegKey HKCU "${SETUP_KEY}"
    DeleteRegKey /ifempty HKCU "Software\${NAME}"
FunctionEnd

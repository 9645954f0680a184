; Putting files in place, and removing them, while the program may be running: a file in use can be
; neither replaced nor removed, but it can be renamed, and the program goes on with it.

!define MOVE_REPLACING 1
!define MOVE_AT_RESTART 4

!macro InUseFunctions UN
    ; Takes a file's path from the stack, gives the file another name and lets it go at once if that is
    ; possible, else when the system is next started. Leaves 1 on the stack when the old name is free.
    Function ${UN}PutAside
        Exch $0
        Push $1
        Push $2
        StrCpy $1 0
        ${Do}
            IntOp $1 $1 + 1
        ${LoopWhile} ${FileExists} "$0.$1.old"
        System::Call 'kernel32::MoveFileExW(w "$0", w "$0.$1.old", i 0) i.r2'
        ${If} $2 <> 0
            System::Call 'kernel32::DeleteFileW(w "$0.$1.old") i.r2'
            ${If} $2 = 0
                ; Refused without rights: the next installation or the removal looks for it.
                System::Call 'kernel32::MoveFileExW(w "$0.$1.old", p 0, i ${MOVE_AT_RESTART})'
            ${EndIf}
            StrCpy $2 1
        ${EndIf}
        StrCpy $0 $2
        Pop $2
        Pop $1
        Exch $0
    FunctionEnd
!macroend
!insertmacro InUseFunctions ""
!insertmacro InUseFunctions "un."

; What earlier installations have put aside and nobody uses any more.
Function SweepAside
    Delete "$ProgramFolder\Ambrio.scr.*.old"
    Delete "$ProgramFolder\filecopy.avi.*.old"
    Delete "$INSTDIR\AmbrioStart.exe.*.old"
FunctionEnd

; Puts a file in place: whole or not at all.
!macro Put SOURCE TARGET
    File "/oname=${TARGET}.new" "${SOURCE}"
    Push "${TARGET}"
    Call PutInPlace
!macroend

Function PutInPlace
    Exch $0
    Push $1
    SetFileAttributes "$0" NORMAL
    System::Call 'kernel32::MoveFileExW(w "$0.new", w "$0", i ${MOVE_REPLACING}) i.r1'
    ${If} $1 = 0
        Push "$0"
        Call PutAside
        Pop $1
        System::Call 'kernel32::MoveFileExW(w "$0.new", w "$0", i ${MOVE_REPLACING}) i.r1'
        ${If} $1 = 0
            Delete "$0.new"
            MessageBox MB_OK|MB_ICONSTOP "$0 cannot be written." /SD IDOK
            Abort "$0 cannot be written."
        ${EndIf}
    ${EndIf}
    Pop $1
    Pop $0
FunctionEnd

!macro Remove FOLDER NAME
    Push "${FOLDER}"
    Push "${NAME}"
    Call un.RemoveWithAsides
!macroend

; Takes a folder and a name from the stack and removes the file and what was put aside for it.
Function un.RemoveWithAsides
    Pop $1
    Pop $0
    Push "$0\$1"
    Call un.RemoveOne
    FindFirst $2 $3 "$0\$1.*.old"
    ${DoWhile} $3 != ""
        Push "$0\$3"
        Call un.RemoveOne
        FindNext $2 $3
    ${Loop}
    FindClose $2
FunctionEnd

; What is in use is moved to the temporary files, so that nothing is left here; where that is another
; drive it stays until the system is next started.
Function un.RemoveOne
    Exch $0
    Push $1
    Push $2
    ${If} ${FileExists} "$0"
        SetFileAttributes "$0" NORMAL
        System::Call 'kernel32::DeleteFileW(w "$0") i.r1'
        ${If} $1 = 0
            GetTempFileName $1
            Delete "$1"
            System::Call 'kernel32::MoveFileExW(w "$0", w "$1", i 0) i.r2'
            ${If} $2 <> 0
                System::Call 'kernel32::MoveFileExW(w "$1", p 0, i ${MOVE_AT_RESTART})'
            ${Else}
                Push "$0"
                Call un.PutAside
                Pop $1
            ${EndIf}
        ${EndIf}
    ${EndIf}
    Pop $2
    Pop $1
    Pop $0
FunctionEnd

echo %TIME%

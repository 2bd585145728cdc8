entity Zähler is port (\ä\\\ : in bit := 'ä'); --  
end; architecture × of zÄHLER is begin end;
